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

export function hashOf(place: Place): string {
  const words = [place.check > 0 ? `check=${place.check + 1}` : '', place.pair === null ? '' : `pair=${place.pair}`];
  return `#${words.filter((word) => word !== '').join('&')}`;
}
