import type { Plot, PlotContext } from '../plots/plot';
import type { Selection } from '../state/selection';
import { el } from './el';
import { saveSvg } from './save_svg';

export interface PlotFigure<View> {
  title: string;
  /** Tells the plot in words with its numbers. */
  sentence: string;
  /** How it is read. */
  help: string;
  plot: Plot<View>;
  view: View;
  selection: Selection;
  /** Switches above it. */
  controls?: HTMLElement[];
  /** Of the grid: 'wide' takes two columns, 'tall' two columns and two rows, 'full' all columns. */
  size?: 'wide' | 'tall' | 'full';
}

export interface DrawnFigure {
  element: HTMLElement;
  /** Draws once more with other data. */
  show(view: unknown, sentence?: string): void;
}

const drawings = new Set<() => void>();
let numbers = 0;

/** For paper and back. */
export function redrawAll(): void {
  for (const draw of drawings) draw();
}

export const printing = (): boolean => document.documentElement.classList.contains('printing');

function widthOf(area: HTMLElement): number {
  return Math.max(260, Math.floor(area.clientWidth));
}

/** A plot in its frame: heading, switches, drawing, its sentence and how it is read. Lives until `end` is aborted. */
export function plotFigure<View>(figure: PlotFigure<View>, end: AbortSignal): DrawnFigure {
  const id = `plot-${++numbers}`;
  const area = el('div', { class: 'plot-area', 'aria-labelledby': `${id}-title ${id}-sentence` });
  const caption = el('figcaption', { id: `${id}-sentence`, class: 'sentence' }, figure.sentence);
  let view = figure.view;
  let drawn = new AbortController();
  let width = 0;

  function draw(): void {
    drawn.abort();
    drawn = new AbortController();
    width = widthOf(area);
    const context: PlotContext = {
      width,
      selection: figure.selection,
      signal: drawn.signal,
      printing: printing(),
    };
    const plot = figure.plot(view, context);
    area.replaceChildren(plot);
    // What holds things to press is a group; a picture would hide them from who listens.
    area.setAttribute('role', area.querySelector('[tabindex],button,input,select,a') ? 'group' : 'img');
  }

  const save = (): void => saveSvg(figure.title, [...area.querySelectorAll<SVGSVGElement>('svg')].filter(isDrawing));
  const element = el(
    'figure',
    { class: `card plot ${figure.size ?? ''}` },
    el(
      'div',
      { class: 'plot-head' },
      el('h3', { id: `${id}-title` }, figure.title),
      el(
        'div',
        { class: 'controls' },
        ...(figure.controls ?? []),
        el(
          'button',
          { type: 'button', class: 'quiet no-print', click: save, 'aria-label': `Save as SVG: ${figure.title}` },
          'Save as SVG',
        ),
      ),
    ),
    area,
    caption,
    el('details', { class: 'help' }, el('summary', {}, 'How to read this'), el('p', {}, figure.help)),
  );
  const observer = new ResizeObserver(() => {
    if (!printing() && Math.abs(widthOf(area) - width) > 4) draw();
  });
  observer.observe(area);
  drawings.add(draw);
  end.addEventListener('abort', () => {
    drawn.abort();
    observer.disconnect();
    drawings.delete(draw);
  });
  // Its width is known when it stands in the page.
  queueMicrotask(() => {
    if (!end.aborted && width === 0) draw();
  });
  return {
    element,
    show(next, sentence) {
      view = next as View;
      if (sentence !== undefined) caption.textContent = sentence;
      draw();
    },
  };
}

function isDrawing(svg: SVGSVGElement): boolean {
  return !svg.classList.contains('icon') && !svg.parentElement?.closest('svg,button');
}
