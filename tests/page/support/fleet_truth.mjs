// What a fleet's page has to show, worked out from the single sets that its data were made of.
import { endOf, limits, meanOf, sdOf } from './fleet_made.mjs';

const dayLength = 86_400_000;
const z = 1.959963984540054;

/** The interval as the two roots of (p - share)^2 = z^2 p (1 - p) / n. */
export function wilsonRoots(count, of) {
  const share = count / of;
  const a = 1 + (z * z) / of;
  const b = -(2 * share + (z * z) / of);
  const root = Math.sqrt(Math.max(0, b * b - 4 * a * share * share));
  return { share, low: (-b - root) / (2 * a), high: (-b + root) / (2 * a) };
}

function yieldOf(truth, name, of, sets) {
  const passed = sets.filter((set) => endOf(set) === 'passed').length;
  const judged = passed + sets.filter((set) => endOf(set) === 'failed').length;
  if (judged === 0) return;
  const { share, low, high } = wilsonRoots(passed, judged);
  truth.set(`${name} ${of}`, share);
  truth.set(`${name}.low ${of}`, low);
  truth.set(`${name}.high ${of}`, high);
}

function counts(truth, of, sets) {
  const ended = (what) => sets.filter((set) => endOf(set) === what).length;
  truth.set(`sets ${of}`, sets.length);
  truth.set(`errors ${of}`, ended('error'));
  truth.set(`passed ${of}`, ended('passed'));
  truth.set(`failed ${of}`, ended('failed'));
  truth.set(`unjudged ${of}`, ended('unjudged'));
}

function measures(truth, sets) {
  for (const { figure, value, lower, upper } of limits) {
    const of = `${figure}.${value}`;
    const values = sets.filter((set) => set.verdict !== 'error').map((set) => set.figures[figure]);
    const [n, mean, sd] = [values.length, meanOf(values), sdOf(values)];
    const cpk = Math.min((upper - mean) / (3 * sd), lower === null ? Infinity : (mean - lower) / (3 * sd));
    const half = cpk * z * Math.sqrt(1 / (9 * n * cpk * cpk) + 1 / (2 * (n - 1)));
    truth.set(`n ${of}`, n);
    truth.set(`mean ${of}`, mean);
    truth.set(`sd ${of}`, sd);
    truth.set(`cpk ${of}`, cpk);
    truth.set(`cpk.low ${of}`, cpk - half);
    truth.set(`cpk.high ${of}`, cpk + half);
    if (lower !== null) truth.set(`cp ${of}`, (upper - lower) / (6 * sd));
  }
}

/** Of the sets that are shown: a map from "figure of" to the number. */
export function fleetTruth(fleet, sets) {
  const truth = new Map();
  const days = sets.map((set) => Math.floor(set.time / dayLength));
  const last = Math.max(...days);
  const within = (from, to) => (set) => {
    const ago = last - Math.floor(set.time / dayLength);
    return ago >= from && ago < to;
  };
  counts(truth, '', sets);
  yieldOf(truth, 'yield', '', sets);
  const latest = sets.filter(within(0, 1));
  yieldOf(truth, 'latest.yield', '', latest);
  truth.set('latest.passed ', latest.filter((set) => endOf(set) === 'passed').length);
  truth.set('latest.judged ', latest.filter((set) => ['passed', 'failed'].includes(endOf(set))).length);
  yieldOf(truth, 'previous.yield', '', sets.filter(within(1, 29)));
  fleet.keys[0].values.forEach((station, s) =>
    fleet.keys[1].values.forEach((model, m) => {
      const own = sets.filter(({ values }) => values[0] === station && values[1] === model);
      counts(truth, `${s}.${m}`, own);
      yieldOf(truth, 'late.yield', `${s}.${m}`, own.filter(within(0, 7)));
      yieldOf(truth, 'before.yield', `${s}.${m}`, own.filter(within(7, 35)));
    }),
  );
  measures(truth, sets);
  for (const code of ['blurred', 'low_contrast'])
    truth.set(`warning ${code}`, sets.filter(({ warning }) => warning === code).length);
  truth.set('ending CALIB_READ_FAILED', sets.filter((set) => set.verdict === 'error').length);
  fleet.worst.forEach((set, index) => {
    truth.set(`worst.measured ${index}`, set.measured);
    truth.set(`worst.times ${index}`, set.times);
  });
  return truth;
}

/** Every number that the page shows. */
export function toldNumbers(page) {
  return page.$$eval('[data-figure]', (nodes) =>
    nodes.map((node) => ({
      name: `${node.dataset.figure} ${node.dataset.of}`,
      value: Number(node.dataset.value),
      absent: node.dataset.value === 'null',
      text: node.textContent.replace(/[\u202f\u00a0]/g, ' ').trim(),
    })),
  );
}

/** Whether a text shows a number to the digits that it has. */
export function showsNumber(text, value) {
  const found = /([\u2212-]?)([\d ]*\d)(\.\d+)?(?:e([\u2212-]?\d+))?( %)?/.exec(text);
  if (!found) return false;
  const [, sign, whole, fraction = '', power = '0', percent] = found;
  const shown = Number(`${whole.replace(/ /g, '')}${fraction}e${power.replace('\u2212', '-')}`) * (sign ? -1 : 1);
  const wanted = percent ? 100 * value : value;
  return (
    Math.abs(shown - wanted) <= 0.5001 * 10 ** (Number(power.replace('\u2212', '-')) - Math.max(0, fraction.length - 1))
  );
}

/** Numbers that are not the truth, and shown texts that are not the numbers; those of charts are tested elsewhere. */
export function wrongNumbers(truth, told) {
  const elsewhere = /^(point|range|sum\.(up|down)|cause\.\w+|broken|cp\.(low|high)) /;
  return told.flatMap(({ name, value, absent, text }) => {
    const shows = absent ? text === '–' : /^(cause\.mean) /.test(name) || showsNumber(text, value);
    const wrong = [shows ? '' : `${name} is ${value}, shown as '${text}'`];
    if (!elsewhere.test(name)) {
      const wanted = truth.get(name);
      const near = wanted !== undefined && Math.abs(value - wanted) <= 2e-6 * Math.max(1e-3, Math.abs(wanted));
      if (!near && !(absent && wanted === undefined)) wrong.push(`${name} is ${wanted}, the page has ${value}`);
    }
    return wrong.filter((line) => line !== '');
  });
}
