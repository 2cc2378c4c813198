/** How the board is looked at: turned about its upright axis, then tipped, degrees. */
export interface Turn {
  yaw: number;
  pitch: number;
}

export interface Point3 {
  x: number;
  y: number;
  z: number;
}

/** Place on the screen, right and down, of a point of the board (x right, y down, z away from the reader). */
export function turned({ x, y, z }: Point3, { yaw, pitch }: Turn): { x: number; y: number } {
  const a = (yaw * Math.PI) / 180;
  const b = (pitch * Math.PI) / 180;
  const right = x * Math.cos(a) + z * Math.sin(a);
  const away = -x * Math.sin(a) + z * Math.cos(a);
  return { x: right, y: y * Math.cos(b) - away * Math.sin(b) };
}
