import { el } from '../dom/el';
import { tableElement } from '../dom/table';
import { percent, shown, typographic } from '../text/number';
import type { PairScope } from './scope';

interface Row {
  key: string;
  title: string;
  words: (value: number) => string;
  /** As a spreadsheet has it, where the words have one. */
  unit: string;
}

/** To three figures that count, without zeros that nobody measured. */
const plain = (unit: string) => (value: number) =>
  `${typographic(String(Number(value.toPrecision(3))))}${unit && ` ${unit}`}`;
const whole = (unit: string) => (value: number) => `${typographic(value.toFixed(0))} ${unit}`;

/** Keys that are not here are shown by their names, so that none is lost. */
const known: Row[] = [
  { key: 'dots', title: 'Dots looked at', words: plain(''), unit: '' },
  { key: 'contrast', title: 'Contrast', words: percent, unit: '1' },
  { key: 'dot', title: 'Grey of the dots', words: plain(''), unit: '' },
  { key: 'ground', title: 'Grey of the ground', words: plain(''), unit: '' },
  { key: 'full_scale', title: 'Whitest grey', words: plain(''), unit: '' },
  { key: 'saturated', title: 'Overexposed', words: percent, unit: '1' },
  { key: 'noise', title: 'Noise, grey values', words: plain(''), unit: '' },
  { key: 'dot_radius', title: 'Radius of a dot', words: plain('px'), unit: 'px' },
  { key: 'edge_width', title: 'Width of the edges', words: plain('px'), unit: 'px' },
  { key: 'edge_width_along', title: 'Width along the blur', words: plain('px'), unit: 'px' },
  { key: 'edge_width_across', title: 'Width across the blur', words: plain('px'), unit: 'px' },
  { key: 'blur_direction', title: 'Direction of the blur', words: whole('°'), unit: '°' },
  { key: 'board_share', title: 'Part of the picture that the board fills', words: percent, unit: '1' },
];

/** What both pictures are like. */
export function quality(scope: PairScope): HTMLElement | null {
  const found = scope.pair.quality;
  if (!found) return null;
  const { left, right } = found;
  const keys = new Set([...Object.keys(left ?? {}), ...Object.keys(right ?? {})]);
  const others = [...keys].filter((key) => !known.some((row) => row.key === key));
  const rows = [
    // What was measured of neither picture, as of a frame's points, is no row.
    ...known.filter(({ key }) => typeof (left?.[key] ?? right?.[key]) === 'number'),
    ...others.map((key) => ({ key, title: key, words: shown, unit: '' })),
  ];
  const cell = (key: string, value: number | null | undefined, words: (value: number) => string) =>
    typeof value === 'number'
      ? { content: el('span', { 'data-quality': key, 'data-value': String(value) }, words(value)), value }
      : '–';
  return el(
    'div',
    { class: 'card' },
    el('h3', {}, 'What the pictures are like'),
    tableElement({
      caption: 'Quality of the pictures',
      columns: [
        { title: 'Quality', copied: ['', 'unit'] },
        { title: 'Left', numbers: true },
        { title: 'Right', numbers: true },
      ],
      rows: rows.map(({ key, title, words, unit }) => [
        { content: document.createTextNode(title), value: title, copied: [title, unit] },
        cell(key, left?.[key], words),
        cell(key, right?.[key], words),
      ]),
      headed: true,
    }),
  );
}
