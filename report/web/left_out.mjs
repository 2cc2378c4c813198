// What the plotting package brings and our plots never call: its legends, tooltips and colour schemes. Ours are drawn
// by us, in colours of the page. Without them the template keeps within its size.
const plot = /@observablehq\/plot\/src\/(legends|marks\/tip|interactions\/pointer)\.js$/;

const replacements = {
  legends: `export const legend = () => null, exposeLegends = () => () => null, createLegends = () => [];`,
  'marks/tip': `export class Tip {} export const tip = () => { throw new Error('left out'); };`,
  'interactions/pointer': ['pointer', 'pointerX', 'pointerY', 'anchorX', 'anchorY']
    .map((name) => `export const ${name} = () => { throw new Error('left out'); };`)
    .join('\n'),
};

/** The names stay, so that whoever imports one still finds it. */
async function emptySchemes() {
  const names = Object.keys(await import('d3-scale-chromatic')).sort();
  return names.map((name) => `export const ${name} = undefined;`).join('\n');
}

export const leftOut = {
  name: 'left out',
  setup(build) {
    build.onLoad({ filter: plot }, ({ path }) => ({ contents: replacements[plot.exec(path)[1]], loader: 'js' }));
    build.onLoad({ filter: /\/d3-scale-chromatic\// }, async () => ({ contents: await emptySchemes(), loader: 'js' }));
  },
};
