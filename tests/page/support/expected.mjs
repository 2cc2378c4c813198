// Trees of what is wanted, against what was found. A leaf is a value that has to be the same to the seventh digit, or a
// function that says what is wrong with a value.

/** To single precision, as plots take it. */
export const single = (value) => (typeof value === 'number' ? near(value, Math.abs(value) * 1.2e-7 + 1e-9) : value);

const apart = (found, wanted, off) =>
  typeof found === 'number' && Math.abs(found - wanted) <= off ? '' : `is ${wanted}, the page has ${found}`;

/** Numbers of a tree that may be off by so much more than rounding. */
export function near(wanted, off) {
  if (typeof wanted === 'number') return (found) => apart(found, wanted, off + 1e-9 * Math.abs(wanted));
  if (wanted === null || typeof wanted !== 'object') return wanted;
  if (Array.isArray(wanted)) return wanted.map((each) => near(each, off));
  return Object.fromEntries(Object.entries(wanted).map(([name, each]) => [name, near(each, off)]));
}

/** Not looked at here. */
export const any = () => '';

export const said = (wanted) => (found) => (found === wanted ? '' : `is '${wanted}', the page says '${found}'`);

const number = /[-\u2212]?\d+(?:\.\d+)?(?:e[-+\u2212]?\d+)?/g;
const tokens = (text) => (text.match(number) ?? []).map((each) => each.replaceAll('\u2212', '-'));

/** A sentence whose numbers are these, in their order and to so many digits. */
export const numbersOf = (values, digits) => (text) => {
  const found = tokens(text);
  const shows = (token, value) =>
    Number.isInteger(value) ? Number(token) === value : nearDigits(token, value, digits);
  const right = found.length === values.length && values.every((value, k) => shows(found[k], value));
  return right ? '' : `tells ${values.join(', ')}, the page says '${text}'`;
};

/** A number between two roundings may go either way. */
function nearDigits(token, value, digits) {
  const step = 10 ** (Math.floor(Math.log10(Math.abs(value) || 1)) + 1 - digits);
  return Math.abs(Number(token) - value) <= 0.5 * step * (1 + 1e-6) + 1e-9;
}

/** A number as rounded to its decimals, of which it has enough. */
function showsRounded(token, value) {
  const decimals = /\.(\d+)/.exec(token)?.[1].length ?? 0;
  const power = Number(/e(-?\d+)$/.exec(token)?.[1] ?? 0);
  const enough = Number.isInteger(value) || decimals >= 4 || /[1-9]/.test(token);
  return enough && Math.abs(Number(token) - value) <= (0.5 + 1e-6) * 10 ** (power - decimals);
}

/** A sentence whose numbers are these, in their order, as rounded to the digits that it has. */
export const roundedNumbers = (values) => (text) => {
  const found = tokens(text);
  const right = found.length === values.length && values.every((value, k) => showsRounded(found[k], value));
  return right ? '' : `tells ${values.join(', ')}, the page says '${text}'`;
};

/** Wherever they differ: "document.board.step is 17.5, the page has 99". */
export function differences(wanted, found, path = '') {
  if (typeof wanted === 'function') {
    const wrong = wanted(found);
    return wrong === '' ? [] : [`${path} ${wrong}`];
  }
  if (wanted === null || typeof wanted !== 'object')
    return Object.is(wanted, found) || (wanted === 0 && found === 0)
      ? []
      : [`${path} is ${wanted}, the page has ${found}`];
  if (found === null || typeof found !== 'object') return [`${path} is there, the page has ${found}`];
  const names = new Set([...Object.keys(wanted), ...Object.keys(found)]);
  return [...names].flatMap((name) => {
    const at = path === '' ? name : `${path}.${name}`;
    if (!(name in wanted)) return [`${at} is none, the page has ${JSON.stringify(found[name]).slice(0, 60)}`];
    if (!(name in found)) return [`${at} is missing`];
    return differences(wanted[name], found[name], at);
  });
}
