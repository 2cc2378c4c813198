import { el } from '../../dom/el';
import { icon } from '../../dom/icon';
import { shortUnit } from '../../text/figures';
import { numberText, percentText, rangeText, toldShare } from '../dom';
import type { Drift } from '../statistics/cusum';
import { capital, causeWords } from '../view/cause_words';
import { beginMinute, fewestForDrift, isLimited, lastingDrift, worsens } from '../view/courses';
import { lastBreak, ruleWords, unknownWords } from '../view/few_points';
import { measureTitle, type FleetView, type Stream } from '../view/view';
import type { Scope } from './scope';

const shownFirst = 4;
const shownDrifts = 2;

function unit(text: string): string {
  return text === '' ? '' : ` ${shortUnit(text)}`;
}

/** "up by 0.021 px to 0.085 px since Tue 17 Nov" */
export function driftWords(view: FleetView, stream: Stream, measure: number, drift: Drift): string {
  const course = stream.courses[measure]!;
  const behind = unit(view.fleet.measures[measure]!.unit);
  const now = (course.baseline?.mean ?? 0) + drift.shift;
  const since = view.calendar.weekdayOf(beginMinute(course, drift));
  const until = drift.lasts ? '' : ` until ${view.calendar.weekdayOf(course.minutes[drift.to]!)}`;
  const word = drift.lasts ? 'since' : 'from';
  const size = numberText(Math.abs(drift.shift));
  return `${drift.side} by ${size}${behind} to ${numberText(now)}${behind} ${word} ${since}${until}`;
}

/** Measures that drift to their limits, the most first. */
export function lastingDrifts({ fleet }: FleetView, stream: Stream): { measure: number; drift: Drift }[] {
  const size = (measure: number, drift: Drift) =>
    Math.abs(drift.shift) / (stream.courses[measure]?.baseline?.sigma ?? 1);
  return stream.courses
    .flatMap((course, measure) => {
      const drift = lastingDrift(course);
      return drift && worsens(fleet.measures[measure]!, drift) ? [{ measure, drift }] : [];
    })
    .sort((a, b) => size(b.measure, b.drift) - size(a.measure, a.drift));
}

/** Where no drift can be told, broken rules are what there is to say: "…: rules 1, 5 are broken, last on Tue 17 Nov; …" */
function brokenRules(view: FleetView, stream: Stream): string[] {
  return stream.courses.flatMap((course, measure) => {
    const last = lastBreak(course);
    if (course.sums || last === null) return [];
    const rules = ruleWords(course);
    const are = rules.startsWith('rules') ? 'are' : 'is';
    const title = measureTitle(view, view.fleet.measures[measure]!);
    const when = view.calendar.weekdayOf(course.minutes[last]!);
    return [`${title}: ${rules} ${are} broken, last on ${when}; ${unknownWords(course)}.`];
  });
}

/** What changed its level without a limit that says whether that is good: neither a fault nor kept quiet. */
function unjudgedChanges({ view }: Scope): HTMLElement | null {
  const { fleet } = view;
  const lines = view.streams.flatMap((stream) =>
    stream.courses.flatMap((course, measure) => {
      const drift = lastingDrift(course);
      if (!drift || isLimited(fleet.measures[measure]!)) return [];
      const title = measureTitle(view, fleet.measures[measure]!);
      return [el('li', {}, el('bdi', {}, stream.name), `, ${title}: ${driftWords(view, stream, measure, drift)}.`)];
    }),
  );
  if (lines.length === 0) return null;
  const words =
    lines.length === 1
      ? 'One figure without a limit is not what it was; nothing says whether that is good'
      : `${lines.length} figures without a limit are not what they were; nothing says whether that is good`;
  return el('details', { id: 'unjudged-changes' }, el('summary', {}, words), el('ul', {}, ...lines));
}

/** What is not known must not be taken for good. */
function unknownSentence({ streams }: FleetView): string {
  const unknown = streams.filter(({ courses }) =>
    courses.some(({ values }) => values.length > 0 && values.length < fewestForDrift),
  ).length;
  if (unknown === 0) return '';
  const who = streams.length === 1 ? 'There are' : `${unknown} of ${streams.length} stations and models have`;
  return ` ${who} fewer than ${fewestForDrift} points of some figures: too few to tell a drift.`;
}

export function keyOf(stream: Stream): string {
  return `${stream.station}.${stream.model}`;
}

function finding(scope: Scope, stream: Stream): HTMLElement {
  const { view } = scope;
  const { calendar, fleet } = view;
  const drifting = lastingDrifts(view, stream);
  const first = drifting[0];
  const target = scope.link({ course: [stream.station, stream.model], measure: first?.measure ?? null });
  const late = calendar.words(calendar.lateCount);
  const recent = stream.causes.filter(({ lasts, from }) => lasts && isNews(view, from));
  return el(
    'li',
    { 'data-finding': keyOf(stream) },
    icon('fail'),
    el(
      'div',
      {},
      el('strong', {}, el('bdi', {}, stream.name)),
      el('a', { href: target }, 'charts'),
      stream.yieldFell &&
        el(
          'p',
          {},
          `Yield of the last ${late} `,
          toldShare('late.yield', keyOf(stream), stream.late.nowYield),
          ', before ',
          toldShare('before.yield', keyOf(stream), stream.late.beforeYield),
          '.',
        ),
      ...recent.map((cause) => {
        const name = fleet.causes.names[cause.cause]!;
        const words = causeWords(name, fleet.causes.units[cause.cause]!, cause.mean, cause.error);
        const sets = `in ${cause.told} of ${cause.diagnosed} sets`;
        return el('p', {}, `${capital(words)} since ${calendar.long(cause.from)}, ${sets}.`);
      }),
      ...drifting
        .slice(0, shownDrifts)
        .map(({ measure, drift }) =>
          el('p', {}, `${measureTitle(view, fleet.measures[measure]!)}: ${driftWords(view, stream, measure, drift)}.`),
        ),
      drifting.length > shownDrifts &&
        el('p', { class: 'faint' }, `${drifting.length - shownDrifts} more figures drift.`),
      ...brokenRules(view, stream)
        .slice(0, shownDrifts)
        .map((words) => el('p', {}, words)),
    ),
  );
}

/** What lasts since ever is no news. */
export function isNews(view: FleetView, from: number): boolean {
  return view.last !== null && from > view.calendar.back(view.last, view.calendar.beforeCount);
}

/** Stations and models that are off, the most first. */
export function findings(scope: Scope): HTMLElement {
  const { view } = scope;
  const off = view.streams.filter(({ weight }) => weight > 0).sort((a, b) => b.weight - a.weight);
  const { calendar } = view;
  if (off.length === 0) {
    const before = calendar.words(calendar.beforeCount);
    const unknown = unknownSentence(view);
    return el(
      'div',
      { id: 'findings' },
      el(
        'p',
        {},
        `${unknown === '' ? 'Nothing is off' : 'Nothing is off that can be told'}: no yield fell, no figure drifts to its limit, no cause came up in the last ${before}.`,
        unknown,
      ),
      unjudgedChanges(scope),
    );
  }
  const rest = off.slice(shownFirst);
  const list = (streams: Stream[]) =>
    el('ul', { class: 'warnings off' }, ...streams.map((stream) => finding(scope, stream)));
  return el(
    'div',
    { id: 'findings' },
    el(
      'h2',
      {},
      off.length === 1 ? 'One of the stations and models is off' : `${off.length} stations and models are off`,
    ),
    list(off.slice(0, shownFirst)),
    rest.length > 0 && el('details', {}, el('summary', {}, `${rest.length} more`), list(rest)),
    unjudgedChanges(scope),
  );
}

/** "2.7 points less (1.6 to 3.9)" */
export function changeWords(difference: { value: number; low: number; high: number }): string {
  if (difference.low <= 0 && difference.high >= 0)
    return `no difference that is more than chance (${rangeText(difference)})`;
  const less = difference.high < 0;
  const [from, to] = less ? [-difference.high, -difference.low] : [difference.low, difference.high];
  const size = percentText(Math.abs(difference.value)).replace('\u00a0%', '');
  return `${size} points ${less ? 'less' : 'more'} (${rangeText({ low: from, high: to }).replace('\u00a0%', '')})`;
}
