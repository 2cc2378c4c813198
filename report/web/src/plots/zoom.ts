import type { Box } from './svg';

/** How far a picture is enlarged, and the point of it (0 to 1) in the middle of the view. */
export interface Zoom {
  factor: number;
  x: number;
  y: number;
}

const largest = 40;
const clamp = (value: number, low: number, high: number) => Math.min(Math.max(value, low), high);

/** The middle stays where the view is full of picture. */
function held({ factor, x, y }: Zoom): Zoom {
  const half = 0.5 / factor;
  return { factor, x: clamp(x, half, 1 - half), y: clamp(y, half, 1 - half) };
}

/** Enlarged by `factor`, 0 back to the whole; the point of the view at `place` (0 to 1) stays where it is. */
export function zoomedAt(zoom: Zoom, factor: number, place: { x: number; y: number }): Zoom {
  if (factor === 0) return { factor: 1, x: 0.5, y: 0.5 };
  const now = clamp(zoom.factor * factor, 1, largest);
  const shift = 1 / zoom.factor - 1 / now;
  return held({ factor: now, x: zoom.x + (place.x - 0.5) * shift, y: zoom.y + (place.y - 0.5) * shift });
}

/** The picture dragged by a part of the view. */
export function moved(zoom: Zoom, dx: number, dy: number): Zoom {
  return held({ factor: zoom.factor, x: zoom.x - dx / zoom.factor, y: zoom.y - dy / zoom.factor });
}

/** Part of the picture in the view, in the picture's pixels; a view of another shape gets a rim. */
export function shownPart(picture: { width: number; height: number }, viewRatio: number, zoom: Zoom): Box {
  const whole = Math.max(picture.width, picture.height / viewRatio);
  const width = whole / zoom.factor;
  const height = width * viewRatio;
  const rimX = (whole - picture.width) / 2;
  const rimY = (whole * viewRatio - picture.height) / 2;
  return {
    x: zoom.x * whole - width / 2 - rimX,
    y: zoom.y * whole * viewRatio - height / 2 - rimY,
    width,
    height,
  };
}
