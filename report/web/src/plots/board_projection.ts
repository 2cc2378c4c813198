import type { Places } from './nearest';
import { present, type Numbers } from './numbers';
import type { Box } from './svg';
import { turned, type Point3, type Turn } from './turn';

/** Places of a board and how far each measured dot is off them, in the board's frame. */
export interface BoardPoints {
  boardX: Numbers;
  boardY: Numbers;
  offX: Numbers;
  offY: Numbers;
  offZ: Numbers;
}

interface Middle {
  x: number;
  y: number;
  /** From the middle to a corner. */
  half: number;
}

function middleOf({ boardX, boardY }: BoardPoints): Middle {
  const ends = (values: Numbers) => {
    const sorted = Float64Array.from(present(values)).sort();
    return [sorted[0] ?? 0, sorted[sorted.length - 1] ?? 0] as const;
  };
  const [left, right] = ends(boardX);
  const [top, bottom] = ends(boardY);
  return { x: (left + right) / 2, y: (top + bottom) / 2, half: Math.hypot(right - left, bottom - top) / 2 || 1 };
}

/** Puts points of the board into the box, so that the board fits however it is turned, with its errors as they are
 * drawn. */
export class BoardProjection {
  private readonly middle: Middle;
  private scale: number;

  constructor(
    private readonly board: BoardPoints,
    private readonly turn: Turn,
    private readonly box: Box,
    factor = 0,
  ) {
    this.middle = middleOf(board);
    const { half } = this.middle;
    const upright = 2.05 * half * Math.cos((turn.back * Math.PI) / 180) + 0.32 * half;
    this.scale = Math.min(box.width / (2.3 * half), box.height / upright);
    this.scale *= Math.min(1, this.roomFor(this.dots(0)), this.roomFor(this.dots(factor)));
  }

  /** How much smaller it has to be for all these places to lie in the box. */
  private roomFor({ x, y }: Places): number {
    const { box } = this;
    let room = 1;
    const fit = (off: number, half: number): void => {
      if (Math.abs(off) > half) room = Math.min(room, half / Math.abs(off));
    };
    x.forEach((at) => fit(at - box.x - box.width / 2, box.width / 2));
    y.forEach((at) => fit(at - box.y - box.height / 2, box.height / 2));
    return room;
  }

  at(point: Point3): { x: number; y: number } {
    const { box, middle, scale } = this;
    const flat = turned({ ...point, x: point.x - middle.x, y: point.y - middle.y }, this.turn);
    return { x: box.x + box.width / 2 + scale * flat.x, y: box.y + box.height / 2 + scale * flat.y };
  }

  /** All dots with their errors so many times as large. */
  dots(factor: number): Places {
    const { boardX, boardY, offX, offY, offZ } = this.board;
    const x = new Float64Array(boardX.length);
    const y = new Float64Array(boardX.length);
    // The true place is known of dots that were not measured, too.
    const off = (error: number | null | undefined) => (factor === 0 ? 0 : factor * (error ?? NaN));
    boardX.forEach((across, i) => {
      const place = this.at({
        x: (across ?? NaN) + off(offX[i]),
        y: (boardY[i] ?? NaN) + off(offY[i]),
        z: off(offZ[i]),
      });
      x[i] = place.x;
      y[i] = place.y;
    });
    return { x, y };
  }
}
