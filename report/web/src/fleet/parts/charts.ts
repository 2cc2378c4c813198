import { el } from '../../dom/el';
import { plotFigure } from '../../dom/plot_figure';
import { section } from '../../parts/chip';
import { withUnit } from '../../plots/numbers';
import { SelectionStore } from '../../state/selection';
import { numberText } from '../dom';
import { controlChart, type ControlChartView } from '../plots/control_chart';
import { decision, type CourseView } from '../view/courses';
import { measureTitle, type FleetView, type Stream } from '../view/view';
import { individualsSentence, rangesSentence, sumsSentence } from './chart_sentences';
import { lastingDrifts } from './findings';
import { pointsTable } from './points_table';
import type { Scope } from './scope';
import { stateTable } from './state_table';

const help = {
  individuals:
    'Points in the order of time. The limits are the mean and 2.66 times the mean moving range on either side of it: what the points would keep by chance. A cross is a point at which a rule is broken, with the number of the rule (Nelson, 1984): 1 one point beyond the limits; 2 nine in a row on one side; 3 six in a row rising or falling; 4 fourteen going up and down in turn; 5 two of three beyond two thirds of the way to a limit; 6 four of five beyond one third; 7 fifteen in a row within one third; 8 eight in a row beyond one third on either side. These limits are not those of the verdict.',
  ranges:
    'How far each point lies from the one before. A range above the limit, 3.267 times the mean range, says that something jumped there.',
  sums: 'Adds up how far the points lie from the mean of the first ones, less half a sigma and 2.5 standard errors of that mean a point: up for those above, down for those below. A sum that comes beyond the line has drifted. The shaded stretch is the drift: from where a change explains the points best to where they came back.',
};

interface Chosen {
  stream: Stream;
  measure: number;
}

/** What the address asks for, else what is off the most. */
function chosen({ view, place }: Scope): Chosen | null {
  const asked = view.streams.find(({ station, model }) => place.course?.[0] === station && place.course[1] === model);
  const stream = asked ?? [...view.streams].sort((a, b) => b.weight - a.weight)[0];
  if (!stream || view.fleet.measures.length === 0) return null;
  return { stream, measure: place.measure ?? lastingDrifts(view, stream)[0]?.measure ?? 0 };
}

function base(view: FleetView, course: CourseView, label: string): Omit<ControlChartView, 'courses' | 'lines'> {
  return {
    label,
    crosses: new Map(),
    shaded: [],
    day: (point) => view.calendar.dayOf(course.minutes[point] ?? 0),
    told: (point) => `${view.calendar.moment(course.minutes[point] ?? 0)}: ${numberText(course.values[point] ?? null)}`,
  };
}

/** Every point of a broken rule is marked; the rule's number stands above the last of them. */
function crossesOf({ breaks }: CourseView): Map<number, string> {
  const crosses = new Map<number, string>();
  for (const { rule, from, to } of breaks) {
    if (rule === 7) continue;
    for (let point = from; point <= to; point++) if (!crosses.has(point)) crosses.set(point, '');
    const words = crosses.get(to);
    crosses.set(to, words ? `${words} ${rule}` : String(rule));
  }
  return crosses;
}

function individualsView(view: FleetView, course: CourseView, label: string): ControlChartView {
  const { chart } = course;
  const lines: ControlChartView['lines'] = chart
    ? [
        ...[-2, -1, 1, 2].map((k) => ({ at: chart.centre + k * chart.sigma, text: '', kind: 'faint' as const })),
        { at: chart.centre, text: `centre ${numberText(chart.centre)}`, kind: 'centre' },
        { at: chart.low, text: numberText(chart.low), kind: 'limit' },
        { at: chart.high, text: numberText(chart.high), kind: 'limit' },
      ]
    : [];
  return { ...base(view, course, label), courses: [course.values], lines, crosses: crossesOf(course) };
}

function rangesView(view: FleetView, course: CourseView, label: string): ControlChartView {
  const { chart } = course;
  const ranges = [null, ...(chart?.ranges ?? [])];
  const over = ranges.flatMap((range, k) => (chart && range !== null && range > chart.rangeHigh ? [k] : []));
  const lines: ControlChartView['lines'] = chart
    ? [
        { at: 0, text: '', kind: 'faint' },
        { at: chart.meanRange, text: `mean ${numberText(chart.meanRange)}`, kind: 'centre' },
        { at: chart.rangeHigh, text: numberText(chart.rangeHigh), kind: 'limit' },
      ]
    : [];
  return { ...base(view, course, label), courses: [ranges], lines, crosses: new Map(over.map((point) => [point, ''])) };
}

function sumsView(view: FleetView, course: CourseView): ControlChartView {
  const { sums } = course;
  return {
    ...base(view, course, 'Sums, sigma'),
    courses: sums ? [sums.up, sums.down.map((sum) => (sum === 0 ? 0 : -sum))] : [[]],
    lines: [
      { at: 0, text: '', kind: 'centre' },
      { at: decision, text: `${decision}`, kind: 'limit' },
      { at: -decision, text: `\u2212${decision}`, kind: 'limit' },
    ],
    shaded: sums?.drifts ?? [],
  };
}

function charts(scope: Scope, { stream, measure }: Chosen): HTMLElement {
  const { view } = scope;
  const course = stream.courses[measure]!;
  const { unit } = view.fleet.measures[measure]!;
  const label = withUnit('Value', unit);
  const figure = (title: string, sentence: string, words: string, shown: ControlChartView) =>
    plotFigure(
      { title, sentence, help: words, plot: controlChart, view: shown, selection: new SelectionStore(), size: 'full' },
      scope.end,
    ).element;
  return el(
    'div',
    { class: 'grid' },
    figure('Points', individualsSentence(view, course, unit), help.individuals, individualsView(view, course, label)),
    figure(
      'Moving ranges',
      rangesSentence(course, unit),
      help.ranges,
      rangesView(view, course, withUnit('Range', unit)),
    ),
    figure('Drift (CUSUM)', sumsSentence(view, stream, measure), help.sums, sumsView(view, course)),
  );
}

function choices(scope: Scope, { stream, measure }: Chosen): HTMLElement {
  const { view } = scope;
  const place = `${stream.station}.${stream.model}`;
  const streams = el(
    'select',
    {
      'data-focus': 'course',
      change: () => scope.go({ course: streams.value.split('.').map(Number) as [number, number], measure }),
    },
    ...view.streams.map((each) =>
      el(
        'option',
        { value: `${each.station}.${each.model}`, selected: `${each.station}.${each.model}` === place },
        each.name,
      ),
    ),
  );
  const measures = el(
    'select',
    {
      'data-focus': 'measure',
      change: () => scope.go({ course: [stream.station, stream.model], measure: Number(measures.value) }),
    },
    ...view.fleet.measures.map((each, k) =>
      el('option', { value: k, selected: k === measure }, measureTitle(view, each)),
    ),
  );
  return el(
    'div',
    { class: 'card filters no-print' },
    el('label', { class: 'filter' }, 'Station and model', streams),
    el('label', { class: 'filter' }, 'Figure', measures),
  );
}

/** Individuals, moving ranges and sums of one station and model, and how all the others are. */
export function chartSection(scope: Scope): HTMLElement | null {
  const found = chosen(scope);
  if (!found) return null;
  const { view } = scope;
  const title = measureTitle(view, view.fleet.measures[found.measure]!);
  return section(
    'charts',
    'In control?',
    el('div', { class: 'card' }, stateTable(scope)),
    el('h3', { id: 'chart-title', class: 'chart-title' }, el('bdi', {}, found.stream.name), `: ${title}`),
    choices(scope, found),
    charts(scope, found),
    el(
      'details',
      { class: 'card' },
      el('summary', {}, el('h3', {}, 'The points as a table')),
      pointsTable(view, found.stream, found.measure),
    ),
  );
}
