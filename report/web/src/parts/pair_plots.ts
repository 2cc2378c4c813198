import { plotFigure, type DrawnFigure, type PlotFigure } from '../dom/plot_figure';
import type { Course, DotColumns, RowStatistics, Statistics } from '../page_data';
import { board3d } from '../plots/board3d';
import { boardCells } from '../plots/board_cells';
import { courseAlong } from '../plots/course';
import { detectorView, refinedDots } from '../plots/detector_view';
import { distanceErrors } from '../plots/distances';
import { histogram } from '../plots/histogram';
import { pictureMap } from '../plots/picture_map';
import type { Plot } from '../plots/plot';
import type { Selection } from '../state/selection';
import { help } from './help';
import { countingBound, dotLimits, isFrame, sides, some } from './pair_views';
import type { PairScope } from './scope';

interface Given {
  scope: PairScope;
  points: DotColumns;
  statistics: Statistics;
  selection: Selection;
}

type Size = PlotFigure<unknown>['size'];

function drawn<View>(
  { scope, selection }: Given,
  title: string,
  sentence: string,
  words: string,
  plot: Plot<View>,
  view: View,
  size?: Size,
): DrawnFigure {
  const shape = size ? { size } : {};
  return plotFigure({ title, sentence, help: words, plot, view, selection, ...shape }, scope.end);
}

function figure<View>(...words: Parameters<typeof drawn<View>>): HTMLElement {
  return drawn(...words).element;
}

/** The row differences, or what remains of them: which dots, how they lie, and in words. */
function rowViews({ scope, points, statistics }: Given, remains: boolean) {
  const of: RowStatistics = (remains && statistics.remains) || statistics;
  const values = remains ? points.dy.map((v, i) => (v === null ? null : v - (points.dy_pattern[i] ?? NaN))) : points.dy;
  // What remains is judged by no limit.
  const bounds = remains ? [] : [...dotLimits(scope, 'dy_max'), ...countingBound(scope, 'dy_bias_divid', 'dy_ratio')];
  const name = remains ? 'What remains' : 'Row difference';
  const dy = { name, unit: 'pixels', ids: points.id, values, bounds };
  const course = (along: string, at: DotColumns['dy'], found: Course | null, sentence: string) =>
    found && { view: { ...dy, along, at, course: found }, sentence };
  return {
    dy,
    of,
    distribution: { view: { ...dy, spread: of.dy, normal: true }, sentence: of.sentences.histogram },
    along: course('Column in the rectified picture', points.rectified_left_x, of.dy_along, of.sentences.along),
    across: course('Row in the rectified picture', points.rectified_left_y, of.dy_across, of.sentences.across),
  };
}

function rowDifferences(given: Given): HTMLElement[] {
  const { scope, points, statistics } = given;
  if (!some(points.dy)) return [];
  const whole = rowViews(given, false);
  const follow = (remains: boolean): void => {
    const now = rowViews(given, remains);
    map.tell(withUnknown(scope, now.of.sentences.map));
    distribution.show(now.distribution.view, now.distribution.sentence);
    if (now.along) along?.show(now.along.view, now.along.sentence);
    if (now.across) across?.show(now.across.view, now.across.sentence);
  };
  const view = {
    ...whole.dy,
    sides: sides(scope, points),
    pattern: points.dy_pattern,
    signed: true,
    arrows: true,
    remains: follow,
  };
  const title = 'Row differences over the picture';
  const map = drawn(given, title, withUnknown(scope, statistics.sentences.map), help.map, pictureMap, view, 'tall');
  const { sentence } = whole.distribution;
  const distribution = drawn(given, 'Distribution', sentence, help.histogram, histogram, whole.distribution.view);
  const courseOf = (words: string, course: typeof whole.along) =>
    course && drawn(given, words, course.sentence, help.course, courseAlong, course.view);
  const along = courseOf('Along the picture', whole.along);
  const across = courseOf('Across the picture', whole.across);
  return [map, distribution, along, across].flatMap((figure) => (figure ? [figure.element] : []));
}

/** Of the figures of the raw pair: of fisheye lenses they say little. */
function ofRawPair({ check }: PairScope, sentence: string): string {
  return check.fisheye_text === '' ? sentence : `${sentence} ${check.fisheye_text}`;
}

/** What remains without the causes can't be shown where what they make of each dot is not known. */
function withUnknown({ check }: PairScope, sentence: string): string {
  return check.pattern_unknown === '' ? sentence : `${sentence} ${check.pattern_unknown}`;
}

function residuals(given: Given): HTMLElement[] {
  const { scope, points, statistics } = given;
  if (!some(points.residual)) return [];
  const { board } = scope.check.document;
  const told = ofRawPair(scope, statistics.sentences.residual);
  const residual = { name: 'Residual', unit: 'pixels', ids: points.id, values: points.residual, signed: false };
  const cells = {
    ...residual,
    largest: null,
    column: points.column,
    row: points.row,
    columns: board.cols,
    rows: board.rows,
  };
  const map = { ...residual, sides: sides(scope, points), arrows: false, bounds: dotLimits(scope, 'tri_max') };
  return [
    ...(isFrame(scope) ? [] : [figure(given, 'Residual over the board', told, help.cells, boardCells, cells)]),
    figure(given, 'Residual over the picture', told, help.residual, pictureMap, map),
  ];
}

function space(given: Given): HTMLElement[] {
  const { scope, points, statistics } = given;
  const { distances, sentences } = statistics;
  const unit = 'board unit';
  const depth = { name: 'Depth error', unit, ids: points.id, values: points.depth_error, signed: true, arrows: false };
  const board = {
    unit,
    ids: points.id,
    column: points.column,
    row: points.row,
    boardX: points.board_x,
    boardY: points.board_y,
    offX: points.off_x,
    offY: points.off_y,
    offZ: points.off_z,
  };
  const depthMap = { ...depth, sides: sides(scope, points), bounds: [] };
  return [
    ...(some(points.off_z) && !isFrame(scope)
      ? [
          figure(
            given,
            'Measured board against the true one',
            ofRawPair(scope, sentences.board3d),
            help.board,
            board3d,
            board,
            'tall',
          ),
        ]
      : []),
    ...(distances.length > 0
      ? [
          figure(given, 'Distance errors', ofRawPair(scope, sentences.distances), help.distances, distanceErrors, {
            unit,
            bins: distances,
          }),
        ]
      : []),
    ...(some(points.depth_error)
      ? [
          figure(
            given,
            'Depth error over the picture',
            ofRawPair(scope, sentences.depth),
            help.depth,
            pictureMap,
            depthMap,
          ),
        ]
      : []),
  ];
}

function disparity(given: Given): HTMLElement[] {
  const { points, statistics } = given;
  if (!some(points.disparity)) return [];
  const view = {
    name: 'Disparity',
    unit: 'pixels',
    ids: points.id,
    values: points.disparity,
    spread: statistics.disparity,
    bounds: [],
    normal: false,
  };
  return [figure(given, 'Range of disparities', statistics.sentences.disparity, help.disparity, histogram, view)];
}

function seenSentence({ scope, points }: Given): string {
  const count = points.id.length;
  if (isFrame(scope)) return `${count} dots of the frame were found in both pictures.`;
  const { left, right } = scope.pair.found ?? { left: count, right: count };
  const { points: all } = scope.check.document.board;
  return `The detector numbered ${left} dots in the left picture and ${right} in the right one; ${count} are in both, of ${all} on the board.`;
}

function seen(given: Given): HTMLElement[] {
  const { scope, points } = given;
  const refined = refinedDots(points);
  const view = { ids: points.id, column: points.column, row: points.row, sides: sides(scope, points), refined };
  return [figure(given, 'What the detector saw', seenSentence(given), help.seen, detectorView, view)];
}

/** Everything that is drawn of a finished pair, in the order in which it is looked at. */
export function pairPlots(
  scope: PairScope,
  points: DotColumns,
  statistics: Statistics,
  selection: Selection,
): HTMLElement[] {
  const given: Given = { scope, points, statistics, selection };
  return [rowDifferences, residuals, space, disparity].flatMap((draw) => draw(given));
}

/** The pictures with what was found in them: looked at last, when a number is in doubt. */
export function seenPlot(
  scope: PairScope,
  points: DotColumns,
  statistics: Statistics,
  selection: Selection,
): HTMLElement[] {
  return seen({ scope, points, statistics, selection });
}
