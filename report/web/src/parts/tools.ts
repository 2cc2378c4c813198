import { el } from '../dom/el';
import { choice } from '../plots/controls';

type Theme = 'auto' | 'light' | 'dark';

function themes(): HTMLElement {
  const words = [
    ['auto', 'Auto'],
    ['light', 'Light'],
    ['dark', 'Dark'],
  ] as const;
  const set = (theme: Theme): void => {
    document.documentElement.style.colorScheme = theme === 'auto' ? '' : theme;
  };
  return choice<Theme>('Theme', words, 'auto', set);
}

/** What stands at the right of the bar on every page. */
export function tools(): HTMLElement {
  return el(
    'span',
    { class: 'tools no-print' },
    themes(),
    el('button', { type: 'button', click: () => window.print() }, 'Print'),
  );
}
