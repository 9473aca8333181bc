// Added to a report page by the layout tests: for each column heading named in `wanted`, whether
// that heading and every cell below it, in every table shown, lies inside the window's width
// without scrolling sideways. Writes "Heading:in view" or "Heading:out of view" into #layout.
function inView(cell) {
  const box = cell.getBoundingClientRect();
  return box.width > 0 && box.left >= 0 && box.right <= window.innerWidth + 0.5;
}
const verdicts = wanted.map((heading) => {
  let cells = 0;
  let outside = 0;
  for (const table of document.querySelectorAll("table")) {
    if (table.getClientRects().length === 0 || !table.tHead) continue;
    const index = [...table.tHead.rows[0].cells]
      .findIndex((cell) => cell.textContent.trim() === heading);
    if (index < 0) continue;
    for (const row of table.rows) {
      cells += 1;
      if (!inView(row.cells[index])) outside += 1;
    }
  }
  return heading + ":" + (cells > 0 && outside === 0 ? "in view" : "out of view");
});
const layout = document.createElement("pre");
layout.id = "layout";
layout.textContent = verdicts.join(" ");
document.body.append(layout);
