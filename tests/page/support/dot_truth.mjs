// What a page has to be given of the dots of a pair, worked out from the document alone.
import { existsSync, readFileSync } from 'node:fs';
import { near, numbersOf, single, said } from './expected.mjs';

const isThere = (value) => typeof value === 'number';
const there = (list) => list.filter(isThere);
const meanOf = (list) => list.reduce((sum, value) => sum + value, 0) / list.length;

function sdOf(list) {
  const mean = meanOf(list);
  return list.length < 2
    ? null
    : Math.sqrt(list.reduce((sum, each) => sum + (each - mean) ** 2, 0) / (list.length - 1));
}

const sizesOf = (list) => list.map(Math.abs);
const minus = (a, b) => a.map((value, k) => (isThere(value) && isThere(b[k]) ? value - b[k] : null));

/** Between two of the sorted values in proportion. */
function quantile(list, share) {
  const sorted = [...list].sort((a, b) => a - b);
  const at = share * (sorted.length - 1);
  const [low, high] = [sorted[Math.floor(at)], sorted[Math.ceil(at)]];
  return low + (high - low) * (at - Math.floor(at));
}

function spreadOf(values) {
  const list = there(values);
  if (list.length === 0) return null;
  return {
    count: list.length,
    mean: meanOf(list),
    mean_abs: meanOf(sizesOf(list)),
    sd: sdOf(list),
    min: Math.min(...list),
    median: quantile(list, 0.5),
    p95_abs: quantile(sizesOf(list), 0.95),
    max: Math.max(...list),
  };
}

const stripes = 12;

function courseOf(places, values) {
  const dots = values.map((value, k) => [places[k], value]).filter((dot) => dot.every(isThere));
  if (dots.length < 2) return null;
  const at = dots.map(([place]) => place);
  const [least, most] = [Math.min(...at), Math.max(...at)];
  const wide = (most - least) / stripes;
  const lots = Array.from({ length: stripes }, () => []);
  for (const [place, value] of dots) lots[Math.min(stripes - 1, Math.floor((place - least) / wide))].push(value);
  const [x, y] = [meanOf(at), meanOf(dots.map(([, value]) => value))];
  const slope =
    dots.reduce((sum, [place, value]) => sum + (place - x) * (value - y), 0) /
    at.reduce((sum, place) => sum + (place - x) ** 2, 0);
  const filled = lots.map((lot, k) => [lot, least + (k + 0.5) * wide]).filter(([lot]) => lot.length > 0);
  return {
    at: filled.map(([, middle]) => middle),
    mean: filled.map(([lot]) => meanOf(lot)),
    sd: filled.map(([lot]) => sdOf(lot)),
    count: filled.map(([lot]) => lot.length),
    slope,
    intercept: y - slope * x,
  };
}

const dot = (a, b) => a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
const cross = (a, b) => [a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]];
const less = (a, b) => a.map((value, k) => value - b[k]);
const scaled = (a, factor) => a.map((value) => value * factor);
const unit = (a) => scaled(a, 1 / Math.hypot(...a));
const times = (rows, vector) => rows.map((row) => dot(row, vector));
const turned = (rows, vector) =>
  rows[0].map((_, k) => rows[0][k] * vector[0] + rows[1][k] * vector[1] + rows[2][k] * vector[2]);

/** Three directions that three points span. */
function frameOf([a, b, c]) {
  const x = unit(less(b, a));
  const z = unit(cross(x, less(c, a)));
  return [x, cross(z, x), z];
}

function solved(rows, right) {
  const of = (a, b, c) => dot(a, cross(b, c));
  const [a, b, c] = [0, 1, 2].map((k) => rows.map((row) => row[k]));
  const whole = of(a, b, c);
  return [of(right, b, c) / whole, of(a, right, c) / whole, of(a, b, right) / whole];
}

/** The turn about an axis by its length (Rodrigues). */
function turn(axis, vector) {
  const angle = Math.hypot(...axis);
  if (angle === 0) return vector;
  const along = scaled(axis, 1 / angle);
  const [a, b] = [cross(along, vector), scaled(along, dot(along, vector) * (1 - Math.cos(angle)))];
  return vector.map((value, k) => value * Math.cos(angle) + a[k] * Math.sin(angle) + b[k]);
}

/**
 * The rotation of least squares that lays measured points on places, both about their means: from that of three points on,
 * by turns in which the torque ends (Newton).
 */
function rotationOnto(measured, places) {
  const distances = measured.map((point) => Math.hypot(...less(point, measured[0])));
  const far = distances.indexOf(Math.max(...distances));
  const off = measured.map((point) => Math.hypot(...cross(less(point, measured[0]), less(measured[far], measured[0]))));
  const three = [0, far, off.indexOf(Math.max(...off))];
  const [from, onto] = [measured, places].map((list) => frameOf(three.map((k) => list[k])));
  let rows = [0, 1, 2].map((k) =>
    from[0].map((_, j) => onto[0][k] * from[0][j] + onto[1][k] * from[1][j] + onto[2][k] * from[2][j]),
  );
  for (let round = 0; round < 8; round++) {
    const seen = measured.map((point) => times(rows, point));
    const torque = [0, 1, 2].map((k) => seen.reduce((sum, point, i) => sum + cross(point, places[i])[k], 0));
    const inertia = [0, 1, 2].map((k) =>
      [0, 1, 2].map((j) =>
        seen.reduce((sum, point) => sum + (k === j ? dot(point, point) : 0) - point[k] * point[j], 0),
      ),
    );
    const axis = solved(inertia, torque);
    const columns = [0, 1, 2].map((j) =>
      turn(
        axis,
        rows.map((row) => row[j]),
      ),
    );
    rows = [0, 1, 2].map((k) => columns.map((column) => column[k]));
  }
  return rows;
}

/** Measured less true places, in the board's frame and along the left camera's axis. */
function offBoard(points, places) {
  const count = points.id.length;
  const none = () => new Array(count).fill(null);
  const off = { off_x: none(), off_y: none(), off_z: none(), depth_error: none() };
  const seen = points.id.map((_, k) => [points.x?.[k], points.y?.[k], points.z?.[k]]);
  const used = points.id.map((_, k) => k).filter((k) => places[k] && seen[k].every(isThere));
  if (used.length < 3) return off;
  const middle = (list) => [0, 1, 2].map((k) => meanOf(used.map((i) => list[i][k])));
  const [a, b] = [middle(seen), middle(places)];
  const [measured, wanted] = [used.map((k) => less(seen[k], a)), used.map((k) => less(places[k], b))];
  const rows = rotationOnto(measured, wanted);
  used.forEach((k, i) => {
    const away = less(times(rows, measured[i]), wanted[i]);
    [off.off_x[k], off.off_y[k], off.off_z[k]] = away;
    off.depth_error[k] = turned(rows, away)[2];
  });
  return off;
}

/** 1, 2 or 5 times a power of ten, about twelve to the diagonal of the board. */
function widthOf(places) {
  const spans = [0, 1, 2].map(
    (k) => Math.max(...places.map((place) => place[k])) - Math.min(...places.map((place) => place[k])),
  );
  const wanted = Math.hypot(...spans) / 12;
  const power = 10 ** Math.floor(Math.log10(wanted));
  return [1, 2, 5, 10].map((each) => each * power).find((each) => each >= wanted);
}

/** Errors of the distances between dots by the true one. */
function distancesOf(points, places) {
  const dots = points.id
    .map((_, k) => ({ seen: [points.x?.[k], points.y?.[k], points.z?.[k]], place: places[k] }))
    .filter(({ seen, place }) => place && seen.every(isThere));
  if (dots.length < 2) return [];
  const wide = widthOf(dots.map(({ place }) => place));
  const bins = new Map();
  dots.forEach((a, k) =>
    dots.slice(0, k).forEach((b) => {
      const distance = Math.hypot(...less(a.place, b.place));
      const bin = Math.floor(distance / wide);
      if (!bins.has(bin)) bins.set(bin, []);
      bins.get(bin).push(Math.hypot(...less(a.seen, b.seen)) - distance);
    }),
  );
  return [...bins]
    .sort(([a], [b]) => a - b)
    .map(([bin, errors]) => ({
      from: bin * wide,
      to: (bin + 1) * wide,
      count: errors.length,
      mean: meanOf(errors),
      sd: sdOf(errors) ?? 0,
      min: errors.reduce((a, b) => Math.min(a, b)),
      max: errors.reduce((a, b) => Math.max(a, b)),
    }));
}

/** Of each dot, by what the set's board says, else its grid. */
function placesOf(document, ids) {
  const { rows, cols, step, step_y } = document.board;
  const file = document.set.inputs.find(({ role }) => role === 'board')?.path;
  const lines = file && existsSync(file) ? readFileSync(file, 'utf8').trim().split('\n') : [];
  const given = lines.map((line) => line.trim().split(/\s+/).map(Number));
  return ids.map((id) => {
    if (id >= rows * cols) return null;
    return given.length === rows * cols ? given[id] : [(id % cols) * step, Math.floor(id / cols) * (step_y || step), 0];
  });
}

const columns = {
  always: ['left_x', 'left_y', 'right_x', 'right_y', 'dy', 'residual', 'x', 'y', 'z'],
  where: ['rectified_left_x', 'rectified_left_y', 'rectified_right_x', 'rectified_right_y'],
  refined: ['left_sd_x', 'left_sd_y', 'right_sd_x', 'right_sd_y', 'left_state', 'right_state'],
};

function columnsOf(document, points, places, shown) {
  const count = points.id.length;
  const { cols } = document.board;
  const apart = minus(points.rectified_left_x ?? [], points.rectified_right_x ?? []);
  const own = (name) => points[name] ?? new Array(count).fill(null);
  return {
    id: points.id,
    column: points.id.map((id) => id % cols),
    row: points.id.map((id) => Math.floor(id / cols)),
    board_x: places.map((place) => single(place?.[0] ?? null)),
    board_y: places.map((place) => single(place?.[1] ?? null)),
    ...Object.fromEntries(columns.always.map((name) => [name, own(name)])),
    ...Object.fromEntries(columns.where.map((name) => [name, there(own(name)).length > 0 ? own(name) : []])),
    disparity: (apart.length > 0 ? apart : new Array(count).fill(null)).map(single),
    // What causes make of the rows is the diagnosis' own; what remains tells whether it was taken.
    dy_pattern: shown.dy_pattern.map((value) => (isThere(value) ? single(value) : null)),
    ...Object.fromEntries(Object.entries(offBoard(points, places)).map(([name, list]) => [name, list.map(single)])),
    ...Object.fromEntries(columns.refined.filter((name) => name in points).map((name) => [name, points[name]])),
  };
}

const three = (values) => numbersOf(values, 3);

/** Its slope is by a picture's width less. */
const nearCourse = (course, off) =>
  course && { ...near(course, off + 1e-12), at: near(course.at, 1e-12), slope: near(course.slope, off / 100 + 1e-15) };

/** `off`: how far the rows may be off. */
function rowsOf(points, dy, off = 0) {
  const along = courseOf(points.rectified_left_x ?? [], dy);
  const across = courseOf(points.rectified_left_y ?? [], dy);
  const spread = spreadOf(dy);
  const course = (found) =>
    found === null
      ? said('Not measured in this pair.')
      : three([found.mean.length, Math.min(...found.mean), Math.max(...found.mean), 1000 * found.slope, 1000]);
  const changes = along && across ? [1000, 1000 * along.slope, 1000 * across.slope] : [];
  const none = said('Not measured in this pair.');
  return {
    dy: near(spread, off + 1e-12),
    dy_along: nearCourse(along, off),
    dy_across: nearCourse(across, off),
    sentences: {
      map: spread ? three([spread.count, spread.min, spread.max, spread.mean, ...changes]) : none,
      histogram: spread ? three([spread.median, spread.mean_abs, 95, spread.p95_abs]) : none,
      along: course(along),
      across: course(across),
    },
  };
}

/** The ten dots that are farthest from zero. */
function worstOf(values) {
  const places = values.map((_, k) => k).filter((k) => isThere(values[k]));
  return places.sort((a, b) => Math.abs(values[b]) - Math.abs(values[a]) || a - b).slice(0, 10);
}

function statisticsOf(points, places, pattern) {
  const dy = points.dy ?? [];
  const apart = minus(points.rectified_left_x ?? [], points.rectified_right_x ?? []);
  const off = offBoard(points, places);
  const [residual, depth, disparity] = [points.residual ?? [], off.depth_error, apart].map(spreadOf);
  const distances = distancesOf(points, places);
  const measured = spreadOf(dy) ? dy : (points.residual ?? []);
  const worst = worstOf(measured);
  const sizes = there(
    off.off_x.map((_, k) => (isThere(off.off_x[k]) ? Math.hypot(off.off_x[k], off.off_y[k], off.off_z[k]) : null)),
  );
  const plane = there(off.off_z);
  const beyond = there(residual ? points.residual : []).filter((each) => each > 1).length;
  const none = said('Not measured in this pair.');
  const rows = rowsOf(points, dy);
  const largest =
    distances.length > 0 ? Math.max(...distances.flatMap(({ min, max }) => [Math.abs(min), Math.abs(max)])) : 0;
  return {
    ...rows,
    // The pattern has seven digits in the page.
    remains: pattern.length > 0 && dy.length > 0 ? rowsOf(points, minus(dy, pattern), 4e-8) : null,
    residual: near(residual, 1e-12),
    depth_error: near(depth, 1e-10),
    disparity: near(disparity, 1e-12),
    distances: near(distances, 1e-10),
    sentences: {
      ...rows.sentences,
      residual: residual
        ? three([residual.count, residual.mean, 95, residual.p95_abs, residual.max, ...(beyond > 0 ? [beyond, 1] : [])])
        : none,
      distances:
        distances.length > 0
          ? three([
              distances.reduce((sum, { count }) => sum + count, 0),
              distances[0].mean,
              distances.at(-1).mean,
              largest,
            ])
          : none,
      depth: depth ? three([depth.count, depth.min, depth.max, depth.sd]) : none,
      disparity: disparity ? numbersOf([disparity.count, disparity.min, disparity.max, disparity.mean], 4) : none,
      board3d:
        sizes.length > 0
          ? three([
              sizes.length,
              Math.sqrt(meanOf(sizes.map((each) => each ** 2))),
              Math.max(...sizes),
              Math.min(...plane),
              Math.max(...plane),
            ])
          : none,
      worst_dots: worst.length > 0 ? three([worst.length, points.id[worst[0]], measured[worst[0]]]) : none,
    },
    worst,
  };
}

const known = new WeakMap();

/** Points and statistics of one source of a pair's centres; `shown` are the page's own points. */
export function dotsOf(document, points, shown) {
  const pattern = JSON.stringify(shown.dy_pattern);
  const found = known.get(points);
  if (found?.pattern === pattern) return found.made;
  const places = placesOf(document, points.id);
  const made = {
    points: columnsOf(document, points, places, shown),
    statistics: statisticsOf(points, places, shown.dy_pattern),
  };
  if (!found) known.set(points, { pattern, made });
  return made;
}
