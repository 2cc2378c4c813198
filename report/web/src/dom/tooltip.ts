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
    if (selection.place) put(box, selection.place.x, selection.place.y);
  }, end);
  // A place on the screen means nothing any more once the page has moved.
  addEventListener('scroll', () => (box.hidden = true), { passive: true, signal: end });
  end.addEventListener('abort', () => box.remove());
}

/** Above the dot, or below where there is no room, and never beyond the window's edges. */
function put(box: HTMLElement, x: number, y: number): void {
  const { offsetWidth: width, offsetHeight: height } = box;
  const left = Math.min(Math.max(8, x - width / 2), document.documentElement.clientWidth - width - 8);
  const top = y - height - 14 >= 8 ? y - height - 14 : Math.min(y + 18, innerHeight - height - 8);
  box.style.transform = `translate(${Math.max(4, left)}px,${Math.max(4, top)}px)`;
}
