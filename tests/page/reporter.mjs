// One line a test, and below a failed one why it failed.
export default async function* reporter(source) {
  let failed = 0;
  let passed = 0;
  for await (const event of source) {
    if (event.type === 'test:stderr' || event.type === 'test:stdout') yield event.data.message;
    if (event.type !== 'test:pass' && event.type !== 'test:fail') continue;
    if (event.data.skip !== undefined) continue;
    const { name, file, nesting, details } = event.data;
    if (nesting > 0 || name === file || name.endsWith('.test.mjs')) {
      if (event.type === 'test:pass') continue;
    }
    const good = event.type === 'test:pass';
    if (good) passed += 1;
    else failed += 1;
    yield `${good ? 'ok    ' : 'FAILED'} ${name} (${Math.round(details.duration_ms)} ms)\n`;
    if (!good) yield `${String(details.error?.cause?.message ?? details.error?.message).replace(/^/gm, '       ')}\n`;
  }
  yield failed === 0 ? `all ${passed} page tests passed\n` : `${failed} page tests failed, ${passed} passed\n`;
}
