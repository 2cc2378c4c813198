import { shortUnit } from '../../text/figures';
import { numberText } from '../dom';
import { ruleTexts, type Break } from '../statistics/run_rules';
import { capital } from '../view/cause_words';
import { decision, type CourseView } from '../view/courses';
import { unknownWords } from '../view/few_points';
import type { FleetView, Stream } from '../view/view';
import { driftWords } from './findings';

function behind(unit: string): string {
  return unit === '' ? '' : ` ${shortUnit(unit)}`;
}

function breakWords(view: FleetView, course: CourseView, rule: number, breaks: readonly Break[]): string {
  const last = breaks[breaks.length - 1]!;
  const [from, to] = [
    view.calendar.weekdayOf(course.minutes[last.from]!),
    view.calendar.weekdayOf(course.minutes[last.to]!),
  ];
  const where = from === to ? from : `${from} to ${to}`;
  const times = breaks.length === 1 ? '' : `${breaks.length} times, last `;
  return `rule ${rule}, ${ruleTexts[rule]} (${times}${where})`;
}

/** "rule 1, a point beyond three sigma (Tue 17 Nov); …" */
export function rulesWords(view: FleetView, course: CourseView): string {
  const rules = [...new Set(course.breaks.map(({ rule }) => rule))];
  const parts = rules.map((rule) =>
    breakWords(
      view,
      course,
      rule,
      course.breaks.filter((each) => each.rule === rule),
    ),
  );
  return parts.length === 0 ? 'No rule is broken.' : `Broken: ${parts.join('; ')}.`;
}

export function individualsSentence(view: FleetView, course: CourseView, unit: string): string {
  const { chart, values, each } = course;
  if (!chart) return `${values.length} points are too few for a chart.`;
  const points =
    each === 1 ? `${values.length} sets` : `${values.length} points, each the mean of ${each} sets in a row`;
  const limits = `${numberText(chart.low)} to ${numberText(chart.high)}${behind(unit)}`;
  return `${points}: centre ${numberText(chart.centre)}${behind(unit)}, limits ${limits}. ${rulesWords(view, course)}`;
}

export function rangesSentence({ chart }: CourseView, unit: string): string {
  if (!chart) return '0 ranges.';
  const over = chart.ranges.filter((range) => range > chart.rangeHigh).length;
  const words = over === 0 ? 'None lies above it.' : `${over} of ${chart.ranges.length} lie above it.`;
  return `Mean range ${numberText(chart.meanRange)}${behind(unit)}, limit ${numberText(chart.rangeHigh)}${behind(unit)}. ${words}`;
}

export function sumsSentence(view: FleetView, stream: Stream, measure: number): string {
  const course = stream.courses[measure]!;
  const { baseline, sums } = course;
  if (!baseline || !sums) return `${capital(unknownWords(course))}.`;
  const unit = behind(view.fleet.measures[measure]!.unit);
  const first = `Compared with the mean of the first ${baseline.points} points, ${numberText(baseline.mean)}${unit}, less ${numberText(baseline.allowance)} sigma a point`;
  if (sums.drifts.length === 0) return `${first}: no drift; no sum comes beyond ${decision} sigma.`;
  return `${first}: ${sums.drifts.map((drift) => driftWords(view, stream, measure, drift)).join('; ')}.`;
}
