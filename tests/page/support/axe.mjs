import axe from 'axe-core';

/** What axe finds, with everything unfolded. */
export async function violations(page, rules = {}) {
  await page.evaluate(axe.source);
  const found = await page.evaluate(async (options) => {
    for (const details of document.querySelectorAll('details')) details.open = true;
    return (await globalThis.axe.run({ resultTypes: ['violations'], ...options })).violations;
  }, rules);
  return found.flatMap(({ id, nodes }) =>
    nodes.slice(0, 5).map(({ target, failureSummary }) => `${id}: ${target.join(' ')}\n${failureSummary}`),
  );
}
