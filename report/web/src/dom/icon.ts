const shapes = {
  pass: 'M8 1a7 7 0 1 0 0 14A7 7 0 0 0 8 1zm3.7 4.9-4.4 5-3-2.7 1-1.1 1.9 1.7 3.4-3.9z',
  fail: 'M8 1a7 7 0 1 0 0 14A7 7 0 0 0 8 1zm3.2 9-1.2 1.2-2-2-2 2L4.8 10l2-2-2-2L6 4.8l2 2 2-2L11.2 6l-2 2z',
  error: 'M8 1 .5 14.5h15zM7.2 6h1.6v4.5H7.2zm0 5.5h1.6v1.6H7.2z',
  given_up: 'M1.5 1.5h13v13h-13zM4 7.2v1.6h8V7.2z',
  none: 'M8 1a7 7 0 1 0 0 14A7 7 0 0 0 8 1zm0 1.6a5.4 5.4 0 1 1 0 10.8A5.4 5.4 0 0 1 8 2.6zM4.8 7.2v1.6h6.4V7.2z',
} as const;

export type IconName = keyof typeof shapes;

/** A shape that tells the state without its colour. What it says is said in words beside it. */
export function icon(name: IconName): SVGSVGElement {
  const svg = document.createElementNS('http://www.w3.org/2000/svg', 'svg');
  svg.setAttribute('viewBox', '0 0 16 16');
  svg.setAttribute('class', `icon ${name}`);
  svg.setAttribute('aria-hidden', 'true');
  const path = document.createElementNS('http://www.w3.org/2000/svg', 'path');
  path.setAttribute('d', shapes[name]);
  path.setAttribute('fill-rule', 'evenodd');
  svg.append(path);
  return svg;
}
