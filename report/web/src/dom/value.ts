import { el } from './el';
import { shown, withError } from '../text/number';

export interface ShownFigure {
  name: string;
  /** Index of the pair; null for a figure of the whole run. */
  pair: number | null;
  /** Number of the check, from 1. */
  check: number;
  value: number | null;
  refined?: boolean;
  sd?: number | null;
  unit?: string;
  /** Why there is none. */
  absence?: string;
  /** It is beyond a limit. */
  over?: boolean;
}

/** Sets what lets a program compare what is shown with the document, number for number. */
export function tellFigure(element: HTMLElement, figure: ShownFigure): void {
  element.setAttribute('data-figure', figure.name);
  if (figure.pair !== null) element.setAttribute('data-pair', String(figure.pair));
  element.setAttribute('data-check', String(figure.check));
  element.setAttribute('data-value', String(figure.value));
  element.setAttribute('data-source', figure.refined ? 'refined' : 'library');
}

export function figureText(figure: ShownFigure): string {
  if (figure.value === null) return '–';
  return typeof figure.sd === 'number' ? withError(figure.value, figure.sd) : shown(figure.value);
}

/** A figure as text, with its exact value and, where there is none, the reason for whoever asks. */
export function figureValue(figure: ShownFigure): HTMLElement {
  const [number = '', sd] = figureText(figure).split(' ± ');
  const element = el('span', { class: 'value' }, number, sd !== undefined && el('small', {}, ` ± ${sd}`));
  if (figure.value === null) {
    element.title = figure.absence ?? 'not measured';
    element.append(el('span', { class: 'hidden-text' }, ` (${element.title})`));
  } else {
    element.title = `${figure.value}${figure.unit ? ` ${figure.unit}` : ''}`;
    if (figure.unit) element.append(el('small', {}, ` ${figure.unit}`));
  }
  tellFigure(element, figure);
  return element;
}
