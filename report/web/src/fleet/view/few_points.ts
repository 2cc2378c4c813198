import { fewestForDrift, type CourseView } from './courses';

/** "rule 1", "rules 1, 5"; empty where none is broken. */
export function ruleWords({ breaks }: CourseView): string {
  const rules = [...new Set(breaks.map(({ rule }) => rule))];
  return rules.length === 0 ? '' : `rule${rules.length === 1 ? '' : 's'} ${rules.join(', ')}`;
}

/** Why nobody can say whether the points drift; empty where that can be said. */
export function unknownWords({ sums, values }: CourseView): string {
  if (sums) return '';
  const counted = values.length === 1 ? '1 point is' : `${values.length} points are`;
  return values.length < fewestForDrift
    ? `${counted} too few to tell a drift; ${fewestForDrift} are needed`
    : 'the points do not scatter, so that no drift can be told';
}

/** What a course without a lasting drift is called: "rules 1, 5", "9 points, too few", "steady". */
export function stateWords(course: CourseView): string {
  const broken = ruleWords(course);
  if (broken !== '') return broken;
  if (course.sums) return 'steady';
  return course.values.length < fewestForDrift ? `${course.values.length} points, too few` : 'no scatter';
}

/** The last point at which a rule is broken; null without one. */
export function lastBreak({ breaks }: CourseView): number | null {
  return breaks.length === 0 ? null : Math.max(...breaks.map(({ to }) => to));
}
