import { framed } from '../../plots/base';
import type { PlotContext } from '../../plots/plot';
import { svg } from '../../plots/svg';
import { percentText } from '../dom';
import type { Calendar } from '../view/calendar';
import type { PeriodYield } from '../view/yields';
import { dayTicks } from './day_ticks';

export interface YieldCourseView {
  periods: readonly PeriodYield[];
  calendar: Calendar;
}

/** The yield of each period with its interval. */
export function yieldCoursePlot({ periods, calendar }: YieldCourseView, context: PlotContext): SVGSVGElement {
  const there = periods.flatMap((period) => (period.yield ? [{ ...period, share: period.yield }] : []));
  const first = there[0]?.day ?? 0;
  const last = there[there.length - 1]?.day ?? 0;
  const gaps = there.slice(1).map((period, k) => period.day - there[k]!.day);
  const length = Math.max(1, Math.min(...gaps, 366) === 366 ? 1 : Math.min(...gaps));
  const least = Math.min(1, ...there.map(({ share }) => share.low));
  const plot = framed({
    width: context.width,
    height: 230,
    x: {
      from: first - 0.7 * length,
      to: last + 0.7 * length,
      label: calendar.period === 'day' ? 'Day (UTC)' : `First day of the ${calendar.period}`,
      ticks: dayTicks(first, last, context.width, length),
      write: (day) => calendar.short(day),
    },
    y: { from: 100 * Math.max(0, least - 0.1 * (1 - least) - 0.002), to: 100.5, label: 'Yield, % of judged sets' },
    marks: [],
  });
  const up = (share: number) => plot.y(100 * share);
  const wide = Math.max(2, Math.min(14, (plot.x(length) - plot.x(0)) * 0.6));
  for (const { day, share } of there) {
    const at = plot.x(day);
    const box = {
      x: at - wide / 2,
      width: wide,
      y: up(share.high),
      height: Math.max(1, up(share.low) - up(share.high)),
    };
    plot.svg.append(svg('rect', { ...box, fill: 'var(--band)' }));
  }
  const line = there.map(({ day, share }) => `${plot.x(day).toFixed(1)} ${up(share.share).toFixed(1)}`).join('L');
  if (there.length > 1)
    plot.svg.append(svg('path', { d: `M${line}`, fill: 'none', stroke: 'var(--within)', 'stroke-width': 1.5 }));
  for (const { day, share } of there) {
    const sign = svg('circle', { cx: plot.x(day), cy: up(share.share), r: 3, fill: 'var(--within)' });
    sign.append(svg('title', {}, `${calendar.long(day)}: ${share.count} of ${share.of}, ${percentText(share.share)}`));
    plot.svg.append(sign);
  }
  return plot.svg;
}
