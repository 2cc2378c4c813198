import type { Fleet, Period } from '../fleet_data';

/** Days of UTC, as the store counts them, in words. */
const dayLength = 86_400_000;
const months = ['Jan', 'Feb', 'Mar', 'Apr', 'May', 'Jun', 'Jul', 'Aug', 'Sep', 'Oct', 'Nov', 'Dec'];
const weekdays = ['Sun', 'Mon', 'Tue', 'Wed', 'Thu', 'Fri', 'Sat'];

/** How many periods count as of late, and how many before them they are compared with. */
const windows: Record<Period, { late: number; before: number; days: number; word: string }> = {
  day: { late: 7, before: 28, days: 1, word: 'days' },
  week: { late: 2, before: 12, days: 7, word: 'weeks' },
  month: { late: 1, before: 12, days: 30.4375, word: 'months' },
  year: { late: 1, before: 5, days: 365.25, word: 'years' },
};

export class Calendar {
  private readonly start: number;
  readonly period: Period;

  constructor(fleet: Pick<Fleet, 'first_day' | 'period'>) {
    this.start = Date.parse(`${fleet.first_day ?? '1970-01-01'}T00:00:00Z`);
    this.period = fleet.period;
  }

  private date(day: number): Date {
    return new Date(this.start + day * dayLength);
  }

  /** "17 Nov" */
  short(day: number): string {
    const date = this.date(Math.floor(day));
    const month = months[date.getUTCMonth()]!;
    if (this.period === 'year') return String(date.getUTCFullYear());
    return this.period === 'month' ? `${month} ${date.getUTCFullYear()}` : `${date.getUTCDate()} ${month}`;
  }

  /** "Tue 17 Nov 2026", "the week of 16 Nov 2026", "Nov 2026" */
  long(day: number): string {
    if (this.period === 'month' || this.period === 'year') return this.short(day);
    const date = this.date(day);
    const text = `${this.short(day)} ${date.getUTCFullYear()}`;
    return this.period === 'week' ? `the week of ${text}` : `${weekdays[date.getUTCDay()]} ${text}`;
  }

  /** "Tue 17 Nov 2026, 06:12 UTC" */
  moment(minute: number): string {
    const date = new Date(this.start + minute * 60_000);
    const two = (number: number) => String(number).padStart(2, '0');
    const day = `${weekdays[date.getUTCDay()]} ${date.getUTCDate()} ${months[date.getUTCMonth()]} ${date.getUTCFullYear()}`;
    return `${day}, ${two(date.getUTCHours())}:${two(date.getUTCMinutes())} UTC`;
  }

  /** "17 Nov" of a minute. */
  dayOf(minute: number): string {
    const date = new Date(this.start + minute * 60_000);
    return `${date.getUTCDate()} ${months[date.getUTCMonth()]}`;
  }

  /** "Tue 17 Nov" of a minute. */
  weekdayOf(minute: number): string {
    const date = new Date(this.start + minute * 60_000);
    return `${weekdays[date.getUTCDay()]} ${this.dayOf(minute)}`;
  }

  /** Minutes of the period that begins with a day, its end left out. */
  minutesOf(day: number): [number, number] {
    const begin = this.date(day);
    const [year, month] = [begin.getUTCFullYear(), begin.getUTCMonth()];
    const [from, to] = [
      begin.getTime(),
      {
        day: begin.getTime() + dayLength,
        week: begin.getTime() + 7 * dayLength,
        month: Date.UTC(year, month + 1),
        year: Date.UTC(year + 1, 0),
      }[this.period],
    ];
    return [(from - this.start) / 60_000, (to - this.start) / 60_000];
  }

  /** The days of `count` periods that end with the one of `last`: those above the result, in days. */
  back(last: number, count: number): number {
    return last - (count - 0.5) * windows[this.period].days;
  }

  get lateCount(): number {
    return windows[this.period].late;
  }

  get beforeCount(): number {
    return windows[this.period].before;
  }

  /** "7 days" */
  words(count: number): string {
    return count === 1 ? this.period : `${count} ${windows[this.period].word}`;
  }
}
