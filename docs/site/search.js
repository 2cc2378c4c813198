// The search of the site. Browsers refuse a page that was opened from disk to fetch the index that mkdocs makes, so
// scripts/site writes this file behind that index, as `pages`: location, title and text of each section.
"use strict";

/** What a section is worth for the words sought: 0 unless it has each of them; its title counts ten times. */
function worth(section, words) {
  const title = section.title.toLowerCase();
  const text = section.text.toLowerCase();
  const counts = words.map((word) => 10 * (title.split(word).length - 1) + Math.min(text.split(word).length - 1, 9));
  return counts.some((count) => count === 0) ? 0 : counts.reduce((sum, count) => sum + count, 0);
}

/** The text around the first of the words. */
function excerpt(text, words) {
  const at = Math.max(0, text.toLowerCase().indexOf(words[0]) - 80);
  return (at > 0 ? "… " : "") + text.slice(at, at + 240) + (at + 240 < text.length ? " …" : "");
}

function hit(section, words) {
  const article = document.createElement("article");
  const heading = article.appendChild(document.createElement("h3"));
  const link = heading.appendChild(document.createElement("a"));
  link.href = section.location;
  link.textContent = section.title;
  article.appendChild(document.createElement("p")).textContent = excerpt(section.text, words);
  return article;
}

function search() {
  const place = document.getElementById("mkdocs-search-results");
  const input = document.getElementById("mkdocs-search-query");
  if (!place || !input) return;
  const show = () => {
    const words = input.value.toLowerCase().split(/\s+/).filter((word) => word !== "");
    const found = words.length === 0 ? [] : pages.map((section) => [worth(section, words), section])
      .filter(([value]) => value > 0).sort((a, b) => b[0] - a[0]).slice(0, 50);
    place.replaceChildren(...found.map(([, section]) => hit(section, words)));
    if (found.length === 0) place.textContent = words.length === 0 ? "" : place.dataset.noResultsText;
  };
  input.value = new URLSearchParams(window.location.search).get("q") || "";
  input.addEventListener("input", show);
  show();
}

document.addEventListener("DOMContentLoaded", search);
