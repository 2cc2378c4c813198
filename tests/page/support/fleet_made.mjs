// Makes the data of a fleet's page (polarline-fleet/1) out of made-up sets: the same for the same seed. What the sets
// were stays with it, so that a test can work figures out from single sets and not from sums.

/** Uniform numbers (Park and Miller, 1988). */
function random(seed) {
  let state = seed % 2147483647 || 1;
  const uniform = () => (state = (state * 48271) % 2147483647) / 2147483647;
  const normal = () => Math.sqrt(-2 * Math.log(uniform())) * Math.cos(2 * Math.PI * uniform());
  return { uniform, normal };
}

const dayLength = 86_400_000;
const iso = (time) => new Date(time).toISOString().replace(/\.\d+Z$/, 'Z');
const rounded = (value, digits = 7) => Number(value.toPrecision(digits));

/**
 * The sets of a line. In the last `offDays` days, which may begin within one, station 3 has cameras that look down by 0.05 degrees: its row
 * differences grow. Station 2 drifts slowly in its distances.
 */
export function madeSets({
  count,
  days = 40,
  stations = 5,
  models = ['K2', 'R7'],
  offDays = 6,
  seed = 7,
  begin = '2026-10-14',
}) {
  const { uniform, normal } = random(seed);
  const start = Date.parse(`${begin}T00:00:00Z`);
  return Array.from({ length: count }, (_, k) => {
    const time = start + Math.floor(((k + uniform()) / count) * days * dayLength);
    const station = String(1 + Math.floor(uniform() * stations));
    const model = models[Math.floor(uniform() * models.length)];
    const day = Math.floor((time - start) / dayLength);
    const off = station === '3' && (time - start) / dayLength >= days - offDays;
    const worn = station === '2' ? Math.max(0, day - days / 2) / days : 0;
    const kind = uniform();
    const verdict = kind < 0.006 ? 'error' : kind < 0.012 ? 'unjudged' : 'judged';
    const dyMax = Math.abs(0.2 + (off ? 0.07 : 0) + 0.03 * normal() + (uniform() < 0.01 ? 0.2 : 0));
    const dis = 0.12 + 0.05 * worn + 0.015 * normal();
    const range = 1000 + 2 * normal();
    const causes =
      off || uniform() < 0.05
        ? [{ name: 'rotation_x', value: (off ? 0.05 : 0.01) + 0.003 * normal(), sd: 0.0021 }]
        : [];
    if (uniform() < 0.03) causes.push({ name: 'row_offset', value: 0.3 * normal(), sd: 0.05 });
    return {
      index: k,
      time,
      serial: `A-${String(k % Math.ceil(count * 0.97)).padStart(6, '0')}`,
      values: [station, model, new Date(time).getUTCHours() < 12 ? 'early' : 'late'],
      verdict,
      figures: { dy_max: dyMax, dis_rms: dis, zero_dis: range },
      causes,
      warning: uniform() < 0.04 ? 'blurred' : uniform() < 0.01 ? 'low_contrast' : null,
    };
  });
}

export const limits = [
  { text: 'dy_max<=0.35', figure: 'dy_max', upper: 0.35, lower: null, value: 'max' },
  { text: 'dis_rms<=0.2', figure: 'dis_rms', upper: 0.2, lower: null, value: 'max' },
  { text: 'zero_dis<=1010', figure: 'zero_dis', upper: 1010, lower: 990, value: 'mean' },
];
const units = { dy_max: 'pixels', dis_rms: 'board unit', zero_dis: 'board unit' };

const broken = (set) =>
  set.verdict === 'judged'
    ? limits.flatMap(({ figure, upper, lower }, k) =>
        set.figures[figure] > upper || (lower !== null && set.figures[figure] < lower) ? [k] : [],
      )
    : [];

export const endOf = (set) => (set.verdict !== 'judged' ? set.verdict : broken(set).length > 0 ? 'failed' : 'passed');

export function meanOf(values) {
  return values.reduce((sum, value) => sum + value, 0) / values.length;
}

export function sdOf(values) {
  const mean = meanOf(values);
  return values.length < 2
    ? 0
    : Math.sqrt(values.reduce((sum, value) => sum + (value - mean) ** 2, 0) / (values.length - 1));
}

function distinct(sets, key) {
  return [...new Set(sets.map((set) => set.values[key]))].sort((a, b) => a.localeCompare(b, 'en', { numeric: true }));
}

function measureOf({ figure, value, upper, lower, text }, groups, cells, setsOf, groupSets) {
  const has = (set) => set.verdict !== 'error';
  const all = groupSets
    .flat()
    .filter(has)
    .map((set) => set.figures[figure])
    .sort((a, b) => a - b);
  const low = Math.min(all[Math.floor(all.length * 0.001)] ?? 0, lower ?? Infinity);
  const high = Math.max(all[Math.floor(all.length * 0.999)] ?? 1, upper);
  const step = [1, 2, 2.5, 5, 10]
    .map((nice) => nice * 10 ** Math.floor(Math.log10((high - low) / 30)))
    .find((nice) => (high - low) / nice <= 30);
  const from = rounded(Math.floor(low / step) * step);
  const count = Math.max(10, Math.ceil((high - from) / step + 1e-9) + 1);
  const lots = setsOf.map((sets) => sets.filter(has).map((set) => set.figures[figure]));
  return {
    name: figure,
    value,
    unit: units[figure],
    lower: groups.map(() => lower),
    upper: groups.map(() => upper),
    texts: lower === null ? [text] : [text, `${figure}>=${lower}`],
    changed: false,
    n: lots.map((lot) => lot.length),
    mean: lots.map((lot) => (lot.length === 0 ? null : rounded(meanOf(lot), 10))),
    sd: lots.map((lot) => (lot.length === 0 ? null : rounded(sdOf(lot)))),
    from,
    step,
    bins: groupSets.map((sets) => {
      const bins = new Array(count).fill(0);
      for (const set of sets.filter(has))
        bins[Math.min(count - 1, Math.max(0, Math.floor((set.figures[figure] - from) / step)))] += 1;
      return bins;
    }),
  };
}

function sparse(setsOf, namesOf) {
  const names = [...new Set(setsOf.flat().flatMap(namesOf))].sort();
  const rows = { cell: [], name: [], sets: [] };
  setsOf.forEach((sets, cell) =>
    names.forEach((name, k) => {
      const count = sets.filter((set) => namesOf(set).includes(name)).length;
      if (count === 0) return;
      rows.cell.push(cell);
      rows.name.push(k);
      rows.sets.push(count);
    }),
  );
  return { names, ...rows };
}

function causesOf(setsOf, cells) {
  const names = [...new Set(setsOf.flat().flatMap((set) => set.causes.map(({ name }) => name)))].sort();
  const table = { cell: [], cause: [], sets: [], mean: [], sd: [], error: [] };
  const totals = new Map();
  setsOf.forEach((sets, cell) =>
    names.forEach((name, k) => {
      const found = sets
        .filter((set) => set.verdict !== 'error')
        .flatMap((set) => set.causes.filter((cause) => cause.name === name));
      if (found.length === 0) return;
      const values = found.map(({ value }) => value);
      table.cell.push(cell);
      table.cause.push(k);
      table.sets.push(found.length);
      table.mean.push(rounded(meanOf(values)));
      table.sd.push(rounded(sdOf(values)));
      table.error.push(rounded(Math.sqrt(meanOf(found.map(({ sd }) => sd * sd)))));
      const total = `${cells.group[cell]} ${k}`;
      totals.set(total, (totals.get(total) ?? 0) + found.length);
    }),
  );
  const split = [...totals].map(([key, sets]) => [...key.split(' ').map(Number), sets]);
  const column = (k) => split.map((row) => row[k]);
  return {
    names,
    units: names.map((name) => ({ rotation_x: 'deg', row_offset: 'px' })[name] ?? ''),
    totals: { group: column(0), cause: column(1), sets: column(2) },
    ...table,
  };
}

function coursesOf(groups, groupSets, start) {
  const streams = new Map();
  groups.forEach(([station, model], group) => {
    const size = groupSets[group].filter((set) => set.verdict !== 'error').length;
    streams.set(`${station} ${model}`, (streams.get(`${station} ${model}`) ?? 0) + size);
  });
  const most = Math.min(100, Math.max(12, Math.floor(40000 / (streams.size * limits.length))));
  return groups.flatMap(([station, model], group) => {
    const each = Math.max(1, Math.ceil(streams.get(`${station} ${model}`) / most));
    const sets = groupSets[group].filter((set) => set.verdict !== 'error');
    const points = Math.floor(sets.length / each);
    if (points === 0) return [];
    const lots = Array.from({ length: points }, (_, k) => sets.slice(k * each, (k + 1) * each));
    return [
      {
        group,
        each,
        waiting: sets.length - points * each,
        begin: lots.map((lot) => Math.floor((lot[0].time - start) / 60_000)),
        minute: lots.map((lot) => Math.floor((lot[lot.length - 1].time - start) / 60_000)),
        values: limits.map(({ figure }) => lots.map((lot) => rounded(meanOf(lot.map((set) => set.figures[figure]))))),
      },
    ];
  });
}

function worstOf(groupSets, pages) {
  return groupSets
    .flatMap((sets, group) =>
      sets
        .filter((set) => set.verdict === 'judged')
        .map((set) => {
          const times = limits.map(({ figure, upper }) => set.figures[figure] / upper);
          const worst = times.indexOf(Math.max(...times));
          const document = `d${String(set.index).padStart(9, '0')}`;
          return {
            set: `line_${set.index}`,
            id: String(set.index).padStart(64, '0'),
            serial: set.serial,
            group,
            time: iso(set.time),
            verdict: broken(set).length > 0 ? 'fail' : 'pass',
            limit: limits[worst].text,
            measured: rounded(set.figures[limits[worst].figure]),
            times: rounded(times[worst]),
            document,
            page: pages ? `${pages}/${document}.html` : null,
          };
        })
        .sort((a, b) => a.verdict.localeCompare(b.verdict) || b.times - a.times)
        .slice(0, 10),
    )
    .sort((a, b) => a.verdict.localeCompare(b.verdict) || b.times - a.times)
    .slice(0, 300);
}

/** Sums of sets as the store makes them. */
export function fleetOf(sets, { title = 'results', pages = '' } = {}) {
  const names = ['station', 'model', 'shift'];
  const keys = names
    .map((key, k) => ({ key, values: sets.length === 0 && k < 2 ? [null] : distinct(sets, k) }))
    .filter(({ values }, k) => k < 2 || values.length > 1);
  const first = sets.length === 0 ? null : Math.min(...sets.map(({ time }) => time));
  const start = first === null ? 0 : Math.floor(first / dayLength) * dayLength;
  const byGroup = new Map();
  for (const set of sets) {
    const group = keys.map(({ values }, k) => values.indexOf(set.values[k]));
    const name = group.join(' ');
    if (!byGroup.has(name)) byGroup.set(name, { group, sets: [] });
    byGroup.get(name).sets.push(set);
  }
  const sorted = [...byGroup.values()].sort((a, b) =>
    a.group.reduce((less, value, k) => less || value - b.group[k], 0),
  );
  const groups = sorted.map(({ group }) => group);
  const groupSets = sorted.map((each) => [...each.sets].sort((a, b) => a.time - b.time || a.index - b.index));
  const table = new Map();
  groupSets.forEach((own, group) =>
    own.forEach((set) => {
      const day = Math.floor((set.time - start) / dayLength);
      const name = `${day} ${group}`;
      if (!table.has(name)) table.set(name, { day, group, sets: [] });
      table.get(name).sets.push(set);
    }),
  );
  const rows = [...table.values()].sort((a, b) => a.day - b.day || a.group - b.group);
  const setsOf = rows.map((row) => row.sets);
  const number = (what) => setsOf.map((own) => own.filter((set) => endOf(set) === what).length);
  const diagnosed = setsOf.map((own) => own.filter((set) => set.verdict !== 'error').length);
  const cells = {
    group: rows.map((row) => row.group),
    day: rows.map((row) => row.day),
    passed: number('passed'),
    failed: number('failed'),
    unjudged: number('unjudged'),
    errors: number('error'),
    diagnosed,
    pairs: diagnosed.map((count) => 3 * count),
    finished: diagnosed.map((count) => 3 * count),
  };
  const { names: codes, name: code, ...warnings } = sparse(setsOf, (set) => (set.warning ? [set.warning] : []));
  const { name: limit, names: kinds, ...over } = sparse(setsOf, (set) => broken(set).map(String));
  const endings = sparse(setsOf, (set) => (set.verdict === 'error' ? ['CALIB_READ_FAILED'] : []));
  return {
    schema: 'polarline-fleet/1',
    made: '2026-11-22T19:00:00Z',
    tool: { name: 'polarline', version: '0.0.0', library: 'PolarLinePrecision 0.0.0' },
    title,
    sets: sets.length,
    serials: new Set(sets.map(({ serial }) => serial)).size,
    first: first === null ? null : iso(first),
    last: first === null ? null : iso(Math.max(...sets.map(({ time }) => time))),
    keys,
    other_keys: sets.length === 0 ? [] : [{ key: 'operator', values: 57 }],
    groups,
    period: 'day',
    first_day: first === null ? null : iso(start).slice(0, 10),
    cells,
    measures: sets.length === 0 ? [] : limits.map((each) => measureOf(each, groups, cells, setsOf, groupSets)),
    limits: limits.map(({ text }) => text),
    broken: { ...over, limit: limit.map((k) => Number(kinds[k])) },
    causes: causesOf(setsOf, cells),
    warnings: { codes, ...warnings, code },
    endings,
    courses: coursesOf(groups, groupSets, start),
    worst: worstOf(groupSets, pages),
    notes: [],
  };
}
