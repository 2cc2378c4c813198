/** What the address says: which check, from 0, and which pair, by its index in the list of pictures. */
export interface Place {
  check: number;
  pair: number | null;
}

export function placeOf(hash: string): Place {
  const words = new URLSearchParams(hash.replace(/^#/, ''));
  const whole = (name: string): number | null => {
    const text = words.get(name) ?? '';
    return /^\d{1,9}$/.test(text) ? Number(text) : null;
  };
  return { check: Math.max(0, (whole('check') ?? 1) - 1), pair: whole('pair') };
}

/** What the address asks for and the page does not have, in words; '' where it has it. */
export function missingWords(place: Place, pairs: readonly { index: number }[], checks: number): string {
  if (place.check >= checks) {
    const are = checks === 1 ? 'is one' : `are ${checks}`;
    return `The address asks for check ${place.check + 1}; there ${are} on this page.`;
  }
  if (place.pair === null || pairs.some(({ index }) => index === place.pair)) return '';
  const [first, last] = [pairs[0]?.index, pairs[pairs.length - 1]?.index];
  const has = first === undefined ? 'no pair' : first === last ? `pair ${first} alone` : `pairs ${first} to ${last}`;
  return `The address asks for pair ${place.pair}; this check has ${has}.`;
}

export function hashOf(place: Place): string {
  const words = [place.check > 0 ? `check=${place.check + 1}` : '', place.pair === null ? '' : `pair=${place.pair}`];
  return `#${words.filter((word) => word !== '').join('&')}`;
}
