// The fleets whose pages the tests open, and the sets that these are made of.
import { fleetOf, madeSets } from './fleet_made.mjs';

const made = {
  // Off from noon on.
  fleet_line: { count: 3000, offDays: 5.5 },
  fleet_one: { count: 1 },
  fleet_few: { count: 90, days: 6, offDays: 2 },
  fleet_empty: { count: 0 },
  fleet_large: { count: 100_000, days: 120, stations: 12, seed: 11 },
};

export const setsOf = (name) => madeSets(made[name]);

const script = '</script><script>document.title="taken"</script>';
const image = '<img src=http://127.0.0.1:9/a.png onerror="document.title=\'taken\'">';
export const hostileTexts = [
  script,
  image,
  '"><svg onload=document.title="taken">',
  '@POLARLINE_DATA@ $& {{x}} &lt;b&gt;',
];

/** Names and texts that would be markup, requests or confusion if a page took them for more than text. */
function hostile(fleet) {
  fleet.title = hostileTexts[0];
  fleet.keys[0].values[0] = hostileTexts[1];
  fleet.keys[1].values[0] = hostileTexts[2];
  fleet.keys[2].key = 'constructor';
  fleet.keys[2].values[0] = '__proto__';
  fleet.measures[0].name = hostileTexts[3];
  fleet.limits[0] = hostileTexts[1];
  fleet.warnings.codes[0] = hostileTexts[0];
  fleet.endings.names[0] = 'toString';
  fleet.causes.names[0] = hostileTexts[2];
  fleet.notes.push(hostileTexts[1], 'line\u2028and\u2029paragraph');
  Object.assign(fleet.worst[0], {
    set: hostileTexts[1],
    serial: hostileTexts[0],
    page: 'javascript:document.title="taken"//.html',
  });
  Object.assign(fleet.worst[1], { page: 'http://127.0.0.1:9/a.html' });
  return fleet;
}

/** Of figures that no limit judges. */
function unlimited(fleet) {
  for (const measure of fleet.measures) {
    const none = measure.lower.map(() => null);
    Object.assign(measure, { value: 'mean', lower: none, upper: none, texts: [] });
  }
  return fleet;
}

/** Name and data of each. */
export function* fleetDocuments() {
  for (const name of Object.keys(made)) yield [name, fleetOf(setsOf(name), { pages: 'pages' })];
  yield ['fleet_unlimited', unlimited(fleetOf(setsOf('fleet_line')))];
  yield ['fleet_hostile', hostile(fleetOf(madeSets({ count: 400 })))];
}
