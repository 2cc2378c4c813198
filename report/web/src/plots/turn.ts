/** How the board is looked at: turned in its own plane, then laid back as on a table; degrees. */
export interface Turn {
  around: number;
  back: number;
}

export interface Point3 {
  x: number;
  y: number;
  z: number;
}

/** Place on the screen, right and down, of a point of the board (x right, y down, z away from who looks at it). On a
 * board that is laid back, what stands out towards the cameras stands up. */
export function turned({ x, y, z }: Point3, { around, back }: Turn): { x: number; y: number } {
  const a = (around * Math.PI) / 180;
  const b = (back * Math.PI) / 180;
  return {
    x: x * Math.cos(a) - y * Math.sin(a),
    y: (x * Math.sin(a) + y * Math.cos(a)) * Math.cos(b) + z * Math.sin(b),
  };
}
