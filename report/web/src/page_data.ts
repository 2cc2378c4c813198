/**
 * What the page is given: one JSON object in the element `polarline-data`. Everything that is computed is computed
 * before; the page draws. A number that is not finite is null. Lists named like columns have one entry a dot, all in
 * the order of `points.id`.
 */
export interface PageData {
  schema: 'polarline-page/1';
  /** When the page was made: UTC, ISO 8601. */
  made: string;
  /** The command that asked for the page, as a shell takes it; '' where it is not known. */
  command: string;
  tool: { name: string; version: string; library: string };
  /**
   * What each figure, cause and warning that a check names means, by its name; a figure with an index stands under the
   * bare name.
   */
  explanations: Record<string, Explanation>;
  /** One check, or two to eight side by side. */
  checks: CheckView[];
  /** Only with two or more checks. */
  comparison: Comparison | null;
}

export interface Explanation {
  title: string;
  text: string;
  /** 'pixels', 'board unit', 'degrees', '%', or '' where it has none. */
  unit: string;
}

export interface CheckView {
  /** The set's name; made different from the others' where two bear the same. */
  title: string;
  /** Verdict and reason in one sentence, as the command says it. */
  headline: string;
  /** The sentence of the worst pair, and of the refined figures; '' where there is none. */
  worst_pair_text: string;
  refined_text: string;
  /** What stands behind figures of the raw pair of fisheye lenses; '' for other lenses. */
  fisheye_text: string;
  /** "2 of 3 pairs finished.", and whether the run ended before its last pair. */
  finished_text: string;
  /** By index in `document.pairs`: what the status says that the pair was given up with; null where there is none. */
  /**
   * Of the pair at which an evaluation ended the run, which has no entry, with what the detector finds in it; null
   * where there is none, or no picture.
   */
  ended_at: Pick<PairDetails, 'pictures' | 'failed_step'> | null;
  given_up: ({ name: string; meaning: string; advice: string } | null)[];
  /** Index in `pairs` of the pair to begin with: the worst, else the first finished, else the first; null: no pair. */
  first_pair: number | null;
  /** The figures that matter first, in order: the names of the small trends. */
  main_figures: string[];
  /** The document 'polarline-check/1' as it was written, but for `pairs[].points` and `pairs[].refined.points`, which
   * stand in `details`, and for paths, which are file names unless they were asked for. */
  document: CheckDocument;
  /** Why `dy_pattern` is empty although causes are told; '' where it is not. */
  pattern_unknown: string;
  /** By index in `document.pairs`; null where the details were left out. */
  details: (PairDetails | null)[];
  /** What was left out and why; '' where nothing was. */
  left_out: string;
  /** Cells of the picture, all finished pairs together. */
  coverage: Coverage | null;
}

export interface Coverage {
  left: CoverageGrid;
  right: CoverageGrid;
  sentence: string;
}

export interface CoverageGrid {
  columns: number;
  rows: number;
  /** How many dots of all pairs lie in the cell, row by row. */
  dots: number[];
}

export interface PairDetails {
  pictures: { left: Picture | null; right: Picture | null };
  /** Of a given-up pair: what the step that failed saw. */
  failed_step: (Picture & FailedStep) | null;
  /** Of a finished pair. */
  points: DotColumns | null;
  refined_points: DotColumns | null;
  statistics: Statistics | null;
  refined_statistics: Statistics | null;
}

export interface FailedStep {
  /** What it is a picture of: 'left picture', 'rectified right picture'. */
  seen: string;
  /** What the detection says of it. */
  text: string;
}

export interface Picture {
  /** data:image/jpeg;base64,… */
  source: string;
  /** Of the original, pixels; points are in its frame (its top left pixel's centre is 0, 0). */
  width: number;
  height: number;
}

export interface DotColumns {
  id: number[];
  /** Place on the board: column and row counted from 0, empty for the points of a frame; the true place, board units. */
  column: number[];
  row: number[];
  board_x: (number | null)[];
  board_y: (number | null)[];
  /** Pixels of the original pictures. */
  left_x: (number | null)[];
  left_y: (number | null)[];
  right_x: (number | null)[];
  right_y: (number | null)[];
  /** Pixels of the rectified pictures; empty lists where there is no rectified pair. */
  rectified_left_x: (number | null)[];
  rectified_left_y: (number | null)[];
  rectified_right_x: (number | null)[];
  rectified_right_y: (number | null)[];
  /** Row difference, left less right, pixels. */
  dy: (number | null)[];
  /** What the told causes would make of it; empty without causes, and where it is not known. */
  dy_pattern: (number | null)[];
  /** Residual of the triangulation, pixels. */
  residual: (number | null)[];
  /** Triangulated place in the left camera, board units. */
  x: (number | null)[];
  y: (number | null)[];
  z: (number | null)[];
  /** Left column less right column of the rectified pictures, pixels. */
  disparity: (number | null)[];
  /** Measured less true place, board units, in the board's frame after the best rigid fit (z: off the plane). */
  off_x: (number | null)[];
  off_y: (number | null)[];
  off_z: (number | null)[];
  /** Measured depth less the depth of the fitted board, board units, along the left camera's axis. */
  depth_error: (number | null)[];
  /** Only of refined points: standard deviations of the centres, pixels, and 'refined', or another word where the
   * centre stayed as it was found. */
  left_sd_x?: (number | null)[];
  left_sd_y?: (number | null)[];
  right_sd_x?: (number | null)[];
  right_sd_y?: (number | null)[];
  left_state?: string[];
  right_state?: string[];
}

/** How row differences lie. */
export interface RowStatistics {
  dy: Spread | null;
  /** Their mean by place: along the picture (x) and across it (y), with the line through them. */
  dy_along: Course | null;
  dy_across: Course | null;
  sentences: { map: string; histogram: string; along: string; across: string };
}

/** Numbers and sentences of one pair's plots. Each sentence tells a plot in words with its numbers. */
export interface Statistics extends RowStatistics {
  /** The same of the row differences without what the told causes would make; null where that is not known. */
  remains: RowStatistics | null;
  residual: Spread | null;
  depth_error: Spread | null;
  disparity: Spread | null;
  /** Errors of distances between dots, by the true distance. */
  distances: DistanceBin[];
  sentences: {
    map: string;
    histogram: string;
    along: string;
    across: string;
    residual: string;
    distances: string;
    depth: string;
    disparity: string;
    board3d: string;
    worst_dots: string;
  };
  /** The ten dots with the largest |dy| (else residual): indices into the columns, worst first. */
  worst: number[];
}

export interface Spread {
  count: number;
  mean: number | null;
  mean_abs: number | null;
  sd: number | null;
  min: number | null;
  median: number | null;
  p95_abs: number | null;
  max: number | null;
}

export interface Course {
  /** Middle of each stripe, pixels of the left rectified picture; its mean, standard deviation and number of dots. */
  at: number[];
  mean: number[];
  sd: (number | null)[];
  count: number[];
  /** Line of least squares through all dots: value at `at` = intercept + slope * at. */
  slope: number;
  intercept: number;
}

export interface DistanceBin {
  /** Range of the true distance, board units. */
  from: number;
  to: number;
  count: number;
  /** Of measured less true distance. */
  mean: number;
  sd: number;
  min: number;
  max: number;
}

export interface Comparison {
  /** In words: what differs and what does not. */
  text: string;
  /** Which checks have no map of row differences, and why; '' where each has one. */
  maps_text: string;
  limits: { text: string; values: (number | null)[]; holds: (boolean | null)[] }[];
  figures: ComparedFigure[];
}

export interface ComparedFigure {
  figure: string;
  unit: string;
  /** One a check: the mean over its finished pairs with its interval; null where nobody measured it. */
  mean: (number | null)[];
  low95: (number | null)[];
  high95: (number | null)[];
  /** Against the first check: difference, its standard deviation, and whether it is more than chance
   * ('none' where it is within its uncertainty, 'unknown' where there is no uncertainty). The standard deviation is of
   * the scatter of the pairs or, with too few of them, of that of the dots within them alone. */
  difference: {
    value: number | null;
    sd: number | null;
    judged: 'more' | 'less' | 'none' | 'unknown';
    basis: 'pairs' | 'dots';
  }[];
}

// ---- The document of a check, as far as the page reads it (docs/schema/polarline-check-1.schema.json) ----

export interface CheckDocument {
  schema: 'polarline-check/1';
  tool: { name: string; version: string; library: string };
  started: string;
  seconds: number;
  set: { name: string; folder: string; id: string; inputs: { role: string; path: string; sha256: string }[] };
  status: { code: number | null; name: string; text: string; advice: string; retry: boolean };
  settings: Record<string, unknown>;
  board: { type: number; rows: number; cols: number; step: number; step_y: number; points: number };
  cameras: Record<string, unknown>;
  pairs: CheckPair[];
  summary: {
    pairs: number;
    finished: number;
    figures: Record<string, FigureSummary>;
    refined?: { figures: Record<string, FigureSummary> };
  };
  limits: { text: string; value: number | null; holds: boolean | null; pair: number | null; why: string }[];
  verdict: 'pass' | 'fail' | 'error';
  diagnosis: Diagnosis | null;
  warnings: { code: string; pair?: number | null; text: string; advice: string }[];
}

export type FigureValue = number | null | (number | null)[];

export interface FigureSummary {
  mean: number | null;
  sd: number | null;
  min: number | null;
  max: number | null;
  worst_pair: number | null;
  sd_mean: number | null;
  low95: number | null;
  high95: number | null;
}

export interface Uncertainty {
  sd: number | null;
  low95: number | null;
  high95: number | null;
}

export interface CheckPair {
  index: number;
  left: string;
  right: string;
  state: 'finished' | 'given up';
  reason: { code: number | string | null; text: string; side: string; step: string } | null;
  figures: Record<string, FigureValue>;
  carried: string[];
  refined?: {
    figures: Record<string, FigureValue>;
    problem: string;
    uncertainty?: Record<string, Uncertainty>;
    dots: { left: number; right: number };
  };
  uncertainty?: Record<string, Uncertainty>;
  found?: { left: number; right: number };
  quality?: { left: PictureQuality | null; right: PictureQuality | null; coverage: number | null } | null;
}

export type PictureQuality = Record<string, number | null>;

export interface Diagnosis {
  causes: {
    name: string;
    value: number | null;
    sd: number | null;
    unit: string;
    share: number | null;
    text: string;
    group?: number | string | null;
  }[];
  text: string;
  rows_before: number | null;
  rows_after: number | null;
  pattern_left: boolean;
  correction?: { path: string; rows_predicted: number | null; rows_seen: number | null } | null;
}
