// Documents that no run makes easily, out of one that a run made.

const copy = (document) => structuredClone(document);

/** Texts that would be markup, requests or confusion if a page took them for more than text. */
const script = '</script><script>document.title="taken"</script>';
const image = '<img src=http://127.0.0.1:9/a.png onerror="document.title=\'taken\'">';
const quoted = '"><svg onload=document.title="taken">';
const comment = '<!--<script>';
const breaks = 'line\u2028and\u2029paragraph';
const backwards = 'right\u202eto left';
const marks = '@POLARLINE_STATIC@ $& {{x}} &lt;b&gt;';

/** What of them has to be seen: everything of names; of texts what is no path, since folders are not told. */
export const shownOfHostile = {
  still: [`${script}${image}`, quoted],
  page: [`${script}${image}`, '<img src=http:', comment, backwards, 'line and paragraph', marks],
};

export function hostile(document) {
  const made = copy(document);
  made.set.name = `${script}${image}`;
  made.set.folder = `/nowhere/${script}`;
  made.pairs[0].left = `${comment}.png`;
  made.pairs[0].right = `${backwards}.png`;
  made.pairs[1].left = image;
  made.limits[0].why = quoted;
  made.warnings.push({ code: 'made_up', pair: 0, text: image, advice: breaks });
  made.warnings.push({ code: 'made_up_too', text: marks, advice: script });
  made.status.text = breaks;
  if (made.diagnosis) made.diagnosis.text = script;
  return made;
}

/** Numbers that were not finite, where there is one pair beside them that has them. */
export function withNulls(document) {
  const made = copy(document);
  const [pair] = made.pairs;
  Object.assign(pair.figures, { dy_means: null, dis_rms: null });
  pair.figures.tri_dis[2] = null;
  pair.carried = ['dis_rms'];
  if (pair.refined) pair.refined.figures.tri_rms = null;
  for (const numbers of Object.values(pair.uncertainty ?? {}))
    Object.assign(numbers, { sd: null, low95: null, high95: null });
  for (const column of ['dy', 'residual', 'x', 'y', 'z']) {
    pair.points[column] = pair.points[column].map((value, index) => (index % 3 === 0 ? null : value));
  }
  Object.assign(made.summary.figures.dy_means, { mean: null, sd: null, min: null, max: null });
  return made;
}

/** The first pair alone. */
export function onePair(document) {
  const made = copy(document);
  made.pairs.length = 1;
  made.summary.pairs = 1;
  made.summary.finished = 1;
  for (const all of [made.summary.figures, made.summary.refined?.figures ?? {}]) {
    for (const numbers of Object.values(all)) Object.assign(numbers, { sd: null, worst_pair: 0 });
  }
  return made;
}

/** All pairs but the first finished one given up; without statistics of several. */
export function oneFinished(document) {
  const made = onePair(document);
  const lost = document.pairs.find(({ state }) => state === 'given up');
  made.pairs.push(copy(lost));
  Object.assign(made.summary, { pairs: 2, finished: 1 });
  return made;
}

/** Another check of the same set whose row differences are `factor` times as large. */
export function scaled(document, name, factor) {
  const made = copy(document);
  made.set.name = name;
  const scale = (numbers, keys) => {
    for (const key of keys) if (typeof numbers[key] === 'number') numbers[key] *= factor;
  };
  for (const figure of ['dy_means', 'dy_max']) {
    for (const pair of made.pairs) {
      scale(pair.figures, [figure]);
      scale(pair.uncertainty?.[figure] ?? {}, ['sd', 'low95', 'high95']);
    }
    scale(made.summary.figures[figure], ['mean', 'sd', 'min', 'max', 'sd_mean', 'low95', 'high95']);
  }
  return made;
}

/** The first pair `count` times, each a little different, with the same pictures. */
export function many(document, count) {
  const made = copy(document);
  const [pair] = made.pairs;
  const drift = (value, index) => (typeof value === 'number' ? value * (1 + 0.2 * Math.sin(index / 30)) : value);
  made.pairs = Array.from({ length: count }, (_, index) => ({
    ...pair,
    index,
    figures: Object.fromEntries(
      Object.entries(pair.figures).map(([name, value]) => [
        name,
        Array.isArray(value) ? value.map((entry) => drift(entry, index)) : drift(value, index),
      ]),
    ),
    points: { ...pair.points, dy: pair.points.dy.map((value, dot) => value + 0.01 * Math.sin(index + dot)) },
  }));
  const pictures = made.set.inputs.filter((input) => /^(left|right)\/0$/.test(input.role));
  made.set.inputs = made.set.inputs.filter((input) => !/^(left|right)\//.test(input.role));
  for (let index = 0; index < count; index += 1) {
    for (const picture of pictures) {
      made.set.inputs.push({ ...picture, role: picture.role.replace('0', String(index)) });
    }
  }
  Object.assign(made.summary, { pairs: count, finished: count });
  return made;
}

/** The same run as one with fisheye lenses. */
export function fisheye(document) {
  const made = copy(document);
  Object.assign(made.cameras, { type: 2, model: 'fisheye' });
  return made;
}

/** The limits of the document in place of its own, broken by its pairs or not; the page marks pairs by itself. */
export function limited(document, ...texts) {
  const made = copy(document);
  made.limits = texts.map((text) => ({ text, value: 1, holds: false, pair: 0, why: 'broken' }));
  made.verdict = texts.length > 0 ? 'fail' : 'pass';
  return made;
}
