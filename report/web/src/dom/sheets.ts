/** Text as a string of a style sheet, whatever stands in it. */
function cssString(text: string): string {
  const escaped = [...text].map((letter) =>
    /[\w ,.-]/.test(letter) ? letter : `\\${letter.codePointAt(0)?.toString(16)} `,
  );
  return `"${escaped.join('')}"`;
}

/** Puts the name and the number of the sheet below each sheet of paper. */
export function sheetStyle(name: string): string {
  const shown = name.length > 80 ? `${name.slice(0, 79)}\u2026` : name;
  const look = 'font: 8pt system-ui, sans-serif; color: #555';
  return `@page { @bottom-left { content: ${cssString(shown)}; ${look} } @bottom-right { content: "Sheet " counter(page) " of " counter(pages); ${look} } }`;
}
