import { redrawAll } from './plot_figure';

/** Paper has its own width, which a style sheet for print would give only after the drawing. */
export function drawnForPaper(main: HTMLElement): void {
  addEventListener('beforeprint', () => forPaper(main, true));
  addEventListener('afterprint', () => forPaper(main, false));
}

function forPaper(main: HTMLElement, on: boolean): void {
  document.documentElement.classList.toggle('printing', on);
  for (const details of main.querySelectorAll<HTMLDetailsElement>('details.on-paper')) {
    if (on && !details.open) details.classList.add('opened');
    if (on || details.classList.contains('opened')) details.open = on;
    if (!on) details.classList.remove('opened');
  }
  redrawAll();
}
