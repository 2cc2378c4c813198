/** Draws once before the next frame, however often it is asked for, and not any more when the drawing has ended. */
export function redrawer(draw: () => void, ended: AbortSignal): () => void {
  let waiting = false;
  return () => {
    if (waiting || ended.aborted) return;
    waiting = true;
    requestAnimationFrame(() => {
      waiting = false;
      if (!ended.aborted) draw();
    });
  };
}
