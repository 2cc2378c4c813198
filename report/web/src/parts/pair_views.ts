import type { CoverageGrid, DotColumns, Picture } from '../page_data';
import type { PictureSide } from '../plots/picture_stage';
import type { Bound } from '../plots/bounds';
import { isUpper, rulesOn } from '../text/limits';
import type { PairScope, Scope } from './scope';

/** Of the cameras' pictures; where the document does not tell, the shape of the grid. */
export function pictureSize(scope: Scope, grid?: CoverageGrid): { width: number; height: number } {
  const { width, height } = scope.check.document.cameras;
  if (typeof width === 'number' && typeof height === 'number' && width > 0 && height > 0) return { width, height };
  return { width: (grid?.columns ?? 4) * 100, height: (grid?.rows ?? 3) * 100 };
}

function side(
  scope: PairScope,
  title: string,
  picture: Picture | null,
  x: PictureSide['x'],
  y: PictureSide['y'],
): PictureSide {
  const { width, height } = picture ?? pictureSize(scope);
  return { title, picture, width, height, x, y };
}

/** Places in the pictures that are there: of a pair that was rectified elsewhere these are the rectified ones. */
export function pixels(points: DotColumns): Record<'left' | 'right', { x: PictureSide['x']; y: PictureSide['y'] }> {
  if (!some(points.left_x) && some(points.rectified_left_x)) {
    return {
      left: { x: points.rectified_left_x, y: points.rectified_left_y },
      right: { x: points.rectified_right_x, y: points.rectified_right_y },
    };
  }
  return { left: { x: points.left_x, y: points.left_y }, right: { x: points.right_x, y: points.right_y } };
}

export function sides(scope: PairScope, points: DotColumns): PictureSide[] {
  const pictures = scope.details?.pictures;
  const { left, right } = pixels(points);
  return [
    side(scope, 'Left', pictures?.left ?? null, left.x, left.y),
    side(scope, 'Right', pictures?.right ?? null, right.x, right.y),
  ];
}

/** A few dots by ids of their own in place of a numbered board. */
export function isFrame(scope: Scope): boolean {
  return Boolean(scope.check.document.settings['frame_work']);
}

/** What a single dot may have: the limits on the largest of them. */
export function dotLimits(scope: PairScope, largest: string): Bound[] {
  const rules = rulesOn(scope.check.document.limits, largest, scope.source).filter(isUpper);
  return rules.map(({ bound }) => ({ value: bound, word: 'limit', judges: true }));
}

/** The bound of the configuration beyond which a figure counts the dots, whoever refined them. */
export function countingBound(scope: PairScope, setting: string, figure: string): Bound[] {
  const value = scope.check.document.settings[setting];
  return typeof value === 'number' && value > 0 ? [{ value, word: `bound of ${figure}`, judges: false }] : [];
}

export function some(values: readonly (number | null)[]): boolean {
  return values.some((value) => value !== null);
}
