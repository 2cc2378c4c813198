/** Places of ticks with room for their words: whole days, some steps apart. */
export function dayTicks(from: number, to: number, width: number, length: number): number[] {
  const room = Math.max(2, Math.floor((width - 60) / 62));
  const days = [1, 2, 7, 14, 28, 56, 91, 182, 365, 730, 1826, 3652].filter((step) => step >= length);
  const step = days.find((each) => (to - from) / each <= room) ?? 36525;
  const ticks: number[] = [];
  for (let at = to; at >= from; at -= step) ticks.unshift(at);
  return ticks;
}
