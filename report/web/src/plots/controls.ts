import { el } from '../dom/el';

/** One of several, as buttons side by side; the pressed one is told by its state, too. */
export function choice<T extends string>(
  label: string,
  options: readonly (readonly [T, string])[],
  chosen: T,
  choose: (option: T) => void,
): HTMLElement {
  const buttons = options.map(([option, text]) =>
    el('button', { type: 'button', 'aria-pressed': String(option === chosen), click: () => press(option) }, text),
  );
  function press(option: T): void {
    buttons.forEach((button, i) => button.setAttribute('aria-pressed', String(options[i]?.[0] === option)));
    choose(option);
  }
  return el('span', { class: 'plot-choice', role: 'group', 'aria-label': label }, ...buttons);
}

/** On or off. */
export function toggle(text: string, on: boolean, change: (on: boolean) => void): HTMLElement {
  const box = el('input', { type: 'checkbox', change: () => change(box.checked) });
  box.checked = on;
  return el('label', { class: 'plot-toggle' }, box, text);
}

export interface Slider {
  element: HTMLElement;
  /** Shows a step that was not chosen with the slider. */
  show(place: number): void;
}

/** A slider over steps; `write` tells the step's value in words. */
export function slider<T>(
  label: string,
  steps: readonly T[],
  chosen: number,
  write: (step: T) => string,
  change: (place: number) => void,
): Slider {
  const told = el('output', {});
  const range = el('input', { type: 'range', min: 0, max: steps.length - 1, step: 1, 'aria-label': label });
  function show(place: number): void {
    const step = steps[place];
    range.value = String(place);
    told.textContent = step === undefined ? '' : write(step);
    range.setAttribute('aria-valuetext', told.textContent);
  }
  range.addEventListener('input', () => {
    show(Number(range.value));
    change(Number(range.value));
  });
  show(chosen);
  return { element: el('label', { class: 'plot-slider' }, label, range, told), show };
}

export function button(text: string, label: string, press: () => void): HTMLElement {
  return el('button', { type: 'button', 'aria-label': label, title: label, click: press }, text);
}

export function controls(...parts: (Node | null)[]): HTMLElement {
  return el('div', { class: 'plot-controls' }, ...parts);
}

/** What a reader has set lives with the view, so that a drawing for paper or of another width keeps it. */
export function kept<View extends object, State>(make: (view: View) => State): (view: View) => State {
  const states = new WeakMap<View, State>();
  return (view) => {
    const state = states.get(view) ?? make(view);
    states.set(view, state);
    return state;
  };
}
