/** Writes text to the clipboard, also where a page from disk is not trusted with the newer way. */
export async function copyText(text: string): Promise<boolean> {
  try {
    await navigator.clipboard.writeText(text);
    return true;
  } catch {
    const area = document.createElement('textarea');
    area.value = text;
    document.body.append(area);
    area.select();
    const done = document.execCommand('copy');
    area.remove();
    return done;
  }
}

/** Hands a file to the browser, made here: nothing is asked of a network. */
export function download(name: string, type: string, content: string): void {
  const address = URL.createObjectURL(new Blob([content], { type }));
  const link = document.createElement('a');
  link.href = address;
  link.download = name.replace(/[^\w.-]+/g, '_');
  link.click();
  setTimeout(() => URL.revokeObjectURL(address), 10_000);
}

/** A field of a table of comma-separated values; one that a spreadsheet would run as a formula is made text. */
export function csvField(text: string): string {
  const number = /^[-+]?[\d.]+(e[-+]?\d+)?$/i.test(text);
  const safe = !number && /^[=+\-@\t]/.test(text) ? `'${text}` : text;
  return /[",\n\r]/.test(safe) ? `"${safe.replace(/"/g, '""')}"` : safe;
}
