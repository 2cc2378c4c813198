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

/** Writing of drawings that is cut: a drawing shows nothing beyond its edge. Its title, the words, and how much is lost. */
export function cutWriting(page) {
  return page.evaluate(() => {
    const outermost = (node) => {
      let drawing = node.ownerSVGElement;
      while (drawing.ownerSVGElement) drawing = drawing.ownerSVGElement;
      return drawing;
    };
    return [...document.querySelectorAll('svg text')].flatMap((node) => {
      const drawing = outermost(node);
      if (!node.checkVisibility() || drawing.clientWidth === 0) return [];
      const [words, edge] = [node.getBoundingClientRect(), drawing.getBoundingClientRect()];
      const lost = [edge.left - words.left, words.right - edge.right, edge.top - words.top, words.bottom - edge.bottom];
      const most = Math.max(...lost);
      const title = node.closest('figure')?.querySelector('h3').textContent;
      return most > 1 ? [`${title}: ${node.textContent} (${most.toFixed(1)} px)`] : [];
    });
  });
}
