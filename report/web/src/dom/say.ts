import { el } from './el';

let region: HTMLElement | null = null;

/** Says a thing to who listens instead of looking. */
export function say(text: string): void {
  region ??= document.body.appendChild(el('div', { class: 'hidden-text', role: 'status', 'aria-live': 'polite' }));
  region.textContent = text;
}
