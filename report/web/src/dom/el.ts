export type Child = Node | string | null | undefined | false;
type Listener = (event: never) => void;
export type Properties = Record<string, string | number | boolean | null | undefined | Listener>;

/**
 * Makes an element. Strings become text, never markup. A property that is a function listens to the event of its
 * name; true sets an empty attribute; false, null and undefined set none.
 */
export function el<K extends keyof HTMLElementTagNameMap>(
  tag: K,
  properties: Properties = {},
  ...children: Child[]
): HTMLElementTagNameMap[K] {
  const element = document.createElement(tag);
  for (const [name, value] of Object.entries(properties)) {
    if (typeof value === 'function') element.addEventListener(name, value as EventListener);
    else if (value === true) element.setAttribute(name, '');
    else if (value !== false && value !== null && value !== undefined) element.setAttribute(name, String(value));
  }
  append(element, ...children);
  return element;
}

export function append(parent: Node, ...children: Child[]): void {
  for (const child of children) {
    if (child) parent.appendChild(typeof child === 'string' ? document.createTextNode(child) : child);
  }
}
