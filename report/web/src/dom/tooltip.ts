import type { DotColumns } from '../page_data';
import type { SelectionStore } from '../state/selection';
import { dotLines } from '../text/dot';
import { el } from './el';
import { say } from './say';

/** The one tooltip of the page: every figure of the dot that is pointed at in any plot. */
export function followDots(selection: SelectionStore, points: DotColumns, unit: string, end: AbortSignal): void {
  const rows = el('dl');
  const box = el('div', { class: 'tooltip', hidden: true, 'aria-hidden': 'true' }, rows);
  const byId = new Map(points.id.map((id, index) => [id, index]));
  let last: number | null = null;
  let from = { x: scrollX, y: scrollY };
  document.body.append(box);
  selection.subscribe(() => {
    const index = selection.hovered === null ? undefined : byId.get(selection.hovered);
    box.hidden = index === undefined || !selection.place;
    if (index === undefined) {
      last = null;
      return;
    }
    if (index !== last) {
      const lines = dotLines(points, index, unit);
      rows.replaceChildren(...lines.flatMap(([name, value]) => [el('dt', {}, name), el('dd', {}, value)]));
      say(lines.map(([name, value]) => `${name} ${value}`).join(', '));
      last = index;
    }
    from = { x: scrollX, y: scrollY };
    if (selection.place) put(box, selection.place.x, selection.place.y);
  }, end);
  // The dot moves with the page, as it does when a key has brought it into view. Out of sight, nothing is told of it.
  const follow = (): void => {
    if (!selection.place || selection.hovered === null) return;
    const [x, y] = [selection.place.x - (scrollX - from.x), selection.place.y - (scrollY - from.y)];
    box.hidden = x < 0 || y < 0 || x > innerWidth || y > innerHeight;
    if (!box.hidden) put(box, x, y);
  };
  addEventListener('scroll', follow, { passive: true, signal: end });
  end.addEventListener('abort', () => box.remove());
}

/** Beside the dot, where it covers fewer of its neighbours; on a narrow screen above or below it. */
function put(box: HTMLElement, x: number, y: number): void {
  box.classList.remove('dense');
  if (box.offsetHeight > innerHeight - 8) box.classList.add('dense');
  const { offsetWidth: width, offsetHeight: height } = box;
  const { clientWidth } = document.documentElement;
  const gap = 18;
  const fits = [x + gap, x - gap - width].find((left) => left >= 4 && left + width <= clientWidth - 4);
  const above = y - height - gap;
  const left = fits ?? Math.min(Math.max(4, x - width / 2), clientWidth - width - 4);
  const top = fits !== undefined ? y - height / 2 : above >= 4 ? above : y + gap;
  const low = Math.max(4, Math.min(top, innerHeight - height - 4));
  box.style.transform = `translate(${Math.round(left)}px,${Math.round(low)}px)`;
}
