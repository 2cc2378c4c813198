import type { Selection } from '../state/selection';

/**
 * What every plot is given besides its data. A plot is a function `(view, context) => element`: it draws once; the
 * frame calls it again with another width or for paper, and aborts `signal` before, so listeners and subscriptions
 * are made with that signal. Colours are CSS variables (`src/styles/colours.css`) inside attributes or inline styles, so that
 * a change of theme needs no redraw and a saved file can have them replaced.
 */
export interface PlotContext {
  /** CSS pixels that the plot may take in width; 300 at the least. */
  width: number;
  /** Of the pair that is shown; plots without dots pay no heed to it. */
  selection: Selection;
  /** Ends with the drawing. */
  signal: AbortSignal;
  /** For paper: nothing to press, nothing that shows only under the pointer. */
  printing: boolean;
}

export type PlotElement = SVGSVGElement | HTMLElement;
export type Plot<View> = (view: View, context: PlotContext) => PlotElement;

/** The library's own labels sit on groups, which have no role; the frame says in one sentence what is to be seen. */
export function withoutLabels<E extends Element>(plot: E): E {
  for (const node of [plot, ...plot.querySelectorAll('*')]) {
    for (const name of node.getAttributeNames()) {
      if (name.startsWith('aria-')) node.removeAttribute(name);
    }
  }
  return plot;
}
