import { download } from './copy';

const inherited = ['font-family', 'font-size', 'font-weight', 'font-variant-numeric'] as const;

/** Colour variables as they stand now, each once. */
function colours(): (text: string) => string {
  const probe = document.body.appendChild(document.createElement('i'));
  const known = new Map<string, string>();
  const value = (name: string): string => {
    if (!known.has(name)) {
      probe.style.color = `var(${name})`;
      known.set(name, getComputedStyle(probe).color);
    }
    return known.get(name) ?? '';
  };
  probe.style.display = 'none';
  queueMicrotask(() => probe.remove());
  return (text) => text.replace(/var\((--[\w-]+)(?:,[^)]*)?\)/g, (_, name: string) => value(name));
}

function inline(svg: SVGSVGElement, original: SVGSVGElement): void {
  const resolve = colours();
  const style = getComputedStyle(original);
  for (const name of inherited) svg.style.setProperty(name, style.getPropertyValue(name));
  svg.style.background = resolve('var(--card)');
  svg.style.color = style.color;
  for (const node of [svg, ...svg.querySelectorAll('*')]) {
    for (const { name, value } of [...node.attributes]) {
      if (value.includes('var(')) node.setAttribute(name, resolve(value));
    }
    // What a style sheet of the plot says holds for its class only inside this page.
    if (node instanceof SVGStyleElement) node.textContent = resolve(node.textContent ?? '');
  }
  svg.setAttribute('xmlns', 'http://www.w3.org/2000/svg');
}

/** Set, pair and plot: a folder holds drawings of many. */
export function drawingName(figure: HTMLElement, title: string): string {
  const { set = '', pair } = figure.closest<HTMLElement>('[data-set]')?.dataset ?? {};
  return [set, pair === undefined ? '' : `pair ${pair}`, title].filter(Boolean).join(' ');
}

/** The drawings of an element as one file that stands alone. */
export function saveSvg(name: string, drawings: SVGSVGElement[]): void {
  drawings.forEach((original, index) => {
    const copy = original.cloneNode(true) as SVGSVGElement;
    inline(copy, original);
    const number = drawings.length > 1 ? `_${index + 1}` : '';
    download(`${name}${number}.svg`, 'image/svg+xml', new XMLSerializer().serializeToString(copy));
  });
}
