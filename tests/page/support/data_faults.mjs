// Faults to put into the data of a page, one for each kind of number in it.

/** Entries of a list are of one kind, and figures whatever their name. */
const kindOf = (path) =>
  path
    .map((part, at) =>
      /^\d+$/.test(part) || ['figures', 'uncertainty', 'settings'].includes(path[at - 1]) ? '*' : part,
    )
    .join('.');

/** What says nothing that a number of the document could tell, or is a picture. */
const left =
  /^(explanations|tool|made|command)\b|\.pictures\.|\.failed_step\.|\.ended_at\.|\.given_up\.|\.main_figures\./;

function* leaves(value, path = []) {
  if (value !== null && typeof value === 'object') {
    for (const [name, each] of Object.entries(value)) yield* leaves(each, [...path, name]);
  } else yield [path, value];
}

/**
 * In the seventh digit; of a whole number one more. What remains of rows without their causes is off in the seventh digit
 * of the rows, as the part of the causes is given to that.
 */
function off(kind, value) {
  if (/\.remains\./.test(kind) && !/\.(count|at)\b/.test(kind)) return value + (/slope/.test(kind) ? 1e-9 : 1e-7);
  if (Math.abs(value) < 1e-9) return 1e-6;
  return Number.isInteger(value) ? value + 1 : value * (1 + 5e-7);
}

/** Falsifies it, and tells how that is taken back. */
function put(data, path, value) {
  const place = path.slice(0, -1).reduce((node, part) => node[part], data);
  const was = place[path.at(-1)];
  place[path.at(-1)] = value;
  return () => (place[path.at(-1)] = was);
}

const texts = /^checks\.\*\.(document\.limits\.\*\.text|(worst_pair|refined)_text)$|\.sentences?\b/;

/** By kind: the last number of it, in the last pair that has it, is falsified; of a text its last digit. */
export function faults(data, only = /./) {
  const found = new Map();
  for (const [path, value] of leaves(data)) {
    const kind = kindOf(path);
    if (left.test(kind) || !only.test(kind)) continue;
    if (typeof value === 'number') found.set(kind, [path, off(kind, value)]);
    else if (/\.(judged|basis|verdict|state)$/.test(kind)) found.set(kind, [path, `${value}?`]);
    else if (typeof value === 'boolean') found.set(kind, [path, !value]);
    else if (texts.test(kind) && /\d/.test(value))
      found.set(kind, [path, value.replace(/\d(?!.*\d)/, (digit) => String((Number(digit) + 5) % 10))]);
  }
  // A dot's part of the causes is the diagnosis' own; that of all dots is told by what remains.
  for (const [kind, [path]] of found) {
    if (!kind.endsWith('.dy_pattern.*')) continue;
    const list = path.slice(0, -1).reduce((node, part) => node[part], data);
    found.set(kind, [path.slice(0, -1), list.map((value) => value * (1 + 5e-7))]);
  }
  return new Map([...found].map(([kind, [path, value]]) => [kind, () => put(data, path, value)]));
}
