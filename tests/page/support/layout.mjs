/** What sticks out to the right, but for what lies in a frame that scrolls by itself. */
export function stickingOut(page) {
  return page.evaluate(() => {
    const wide = document.documentElement.clientWidth;
    const scrolls = (node) => {
      for (let at = node.parentElement; at; at = at.parentElement) {
        if (/auto|scroll|hidden|clip/.test(getComputedStyle(at).overflowX)) return true;
      }
      return false;
    };
    const out = [...document.body.querySelectorAll('*')].filter(
      (node) => node.getBoundingClientRect().right > wide + 1 && node.checkVisibility() && !scrolls(node),
    );
    return {
      scroll: document.documentElement.scrollWidth - wide,
      out: out
        .slice(0, 5)
        .map((node) => `${node.tagName}.${node.getAttribute('class')} ${node.textContent.slice(0, 30)}`),
    };
  });
}
