<?xml version="1.0" encoding="UTF-8"?>
<!-- The look shared by the browser reports: page style, heading and footer. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:template name="page-head">
    <xsl:param name="title"/>
    <meta name="viewport" content="width=device-width, initial-scale=1"/>
    <title><xsl:value-of select="$title"/></title>
    <style>
:root {
  --ink: #1d2733; --muted: #5b6673; --rule: #d5dbe2; --band: #f3f6f9; --accent: #1f5f99;
  --discard: #8a939d;
}
* { box-sizing: border-box; }
body {
  margin: 0; padding: 1.5rem 1rem 2rem; color: var(--ink); background: #fff;
  font: 15px/1.45 "Segoe UI", "Noto Sans", "DejaVu Sans", Helvetica, Arial, sans-serif;
}
main { max-width: 80rem; margin: 0 auto; }
header.report { border-bottom: 3px solid var(--accent); padding-bottom: .6rem; margin-bottom: 1rem; }
.organisation { margin: 0; font-size: .95rem; letter-spacing: .04em; text-transform: uppercase; color: var(--accent); font-weight: 600; }
h1 { margin: .15rem 0 .1rem; font-size: 1.65rem; line-height: 1.2; }
.race-line { margin: 0; font-size: 1.05rem; color: var(--muted); }
.race-line strong { color: var(--ink); }
.selection { margin: .35rem 0 0; font-size: .9rem; color: var(--muted); }
nav.classes { margin: .8rem 0 0; display: flex; flex-wrap: wrap; gap: .4rem; }
nav.classes a {
  text-decoration: none; color: var(--accent); border: 1px solid var(--rule); border-radius: 1rem;
  padding: .1rem .7rem; font-size: .9rem;
}
nav.classes a:hover { background: var(--band); }
section.class { margin: 1.6rem 0 0; border-left: 5px solid var(--class-colour, var(--accent)); padding-left: .8rem; }
section.class1 { --class-colour: #1f5f99; }
section.class2 { --class-colour: #2e8540; }
section.class3 { --class-colour: #c3660f; }
section.class4 { --class-colour: #7a3e9d; }
section.classmultihulls { --class-colour: #0f8a8a; }
h2 { margin: 0; font-size: 1.3rem; }
h3 { margin: 1rem 0 .3rem; font-size: 1.05rem; color: var(--muted); font-weight: 600; }
.class-facts { margin: .1rem 0 .4rem; color: var(--muted); font-size: .92rem; }
.note { margin: .3rem 0; padding: .35rem .6rem; background: var(--band); border-radius: .25rem; font-size: .92rem; }
.scroll { overflow-x: auto; }
table { border-collapse: collapse; width: 100%; font-variant-numeric: tabular-nums; }
th, td { padding: .3rem .45rem; text-align: left; border-bottom: 1px solid var(--rule); white-space: nowrap; }
th { font-size: .8rem; text-transform: uppercase; letter-spacing: .03em; color: var(--muted); border-bottom: 2px solid var(--ink); }
tbody tr:nth-child(even) { background: var(--band); }
td.num, th.num { text-align: right; }
td.boat { font-weight: 600; }
td.notes { white-space: normal; min-width: 12rem; color: var(--muted); font-size: .9rem; }
td.pos { font-weight: 700; }
td.total { font-weight: 700; }
.discard { color: var(--discard); text-decoration: line-through; }
table.series th, table.series td { text-align: right; }
table.series .boat, table.series .sail { text-align: left; }
table.series td.pos, table.series td.total { font-weight: 700; }
table.series caption { text-align: left; color: var(--muted); font-size: .85rem; padding: .6rem 0 .2rem; }
.write-in { width: 9rem; border-left: 1px solid var(--rule); }
tr.write-row td { height: 2.1rem; }
.legend, footer { color: var(--muted); font-size: .85rem; }
.legend { margin: .3rem 0 0; }
/* Position and boat stay in view while the other columns scroll sideways. */
th.pos, td.pos { position: sticky; left: 0; z-index: 1; min-width: 2.9rem; width: 2.9rem; }
th.boat, td.boat { position: sticky; left: 2.9rem; z-index: 1; }
th.pos, th.boat, td.pos, td.boat { background: #fff; }
tbody tr:nth-child(even) td.pos, tbody tr:nth-child(even) td.boat { background: var(--band); }
td.boat { box-shadow: inset -1px 0 0 var(--rule); }
nav.archive a { color: var(--accent); }
.empty { color: var(--muted); font-style: italic; }
footer { margin-top: 2rem; border-top: 1px solid var(--rule); padding-top: .5rem; }
@media (max-width: 44rem) {
  body { font-size: 14px; padding: 1rem .5rem; }
  .wide { display: none; }
  td.boat { white-space: normal; min-width: 6.5rem; max-width: 9rem; }
  th, td { padding: .3rem .3rem; }
  th.pos, td.pos { min-width: 2.2rem; width: 2.2rem; }
  th.boat, td.boat { left: 2.2rem; }
  section.class { padding-left: .5rem; }
  h1 { font-size: 1.35rem; }
}
@media print {
  @page { size: A4; margin: 14mm 12mm; }
  body { font-size: 9pt; padding: 0; }
  .model { display: none; }
  td.notes { min-width: 6rem; }
  table.series { font-size: 7.5pt; }
  table.series .sail { display: none; }
  table.series th, table.series td { padding: 1.5pt 2pt; }
  th { font-size: 6.5pt; letter-spacing: 0; }
  section.class { padding-left: 4pt; }
  main { max-width: none; }
  nav.classes, nav.archive { display: none; }
  .scroll { overflow: visible; }
  th, td { padding: 1.5pt 3pt; }
  th.pos, td.pos, th.boat, td.boat { position: static; background: none; box-shadow: none; }
  table.series caption { break-after: avoid; padding-top: 6pt; }
  /* A heading stays with what it heads: no page ends on a heading or starts with a footer. */
  header.report, h2, h3, .class-facts, .note { break-after: avoid; }
  footer, .legend { break-before: avoid; }
  .sheet-per-page section.class { break-before: page; }
  .sheet-per-page section.class:first-of-type { break-before: auto; }
  thead { display: table-header-group; }
  tr { break-inside: avoid; }
  a { color: inherit; text-decoration: none; }
}
    </style>
  </xsl:template>

  <!-- The report's heading from the root element's attributes. -->
  <xsl:template name="page-heading">
    <xsl:param name="kind"/>
    <xsl:param name="selection"/>
    <xsl:param name="class-menu" select="true()"/>
    <header class="report">
      <xsl:if test="string(@Organisation)">
        <p class="organisation"><xsl:value-of select="@Organisation"/></p>
      </xsl:if>
      <h1><xsl:value-of select="@Series"/></h1>
      <p class="race-line">
        <strong><xsl:value-of select="$kind"/></strong>
        <xsl:text> · </xsl:text>
        <xsl:value-of select="@Race"/>
        <xsl:text> · </xsl:text>
        <xsl:value-of select="@ScheduleDate"/>
      </p>
      <xsl:if test="string($selection)">
        <p class="selection"><xsl:value-of select="$selection"/></p>
      </xsl:if>
      <xsl:if test="$class-menu and count(*[@Class]) &gt; 1">
        <nav class="classes">
          <xsl:for-each select="*[@Class]">
            <a href="#c{@ClassId}"><xsl:value-of select="@Class"/></a>
          </xsl:for-each>
        </nav>
      </xsl:if>
    </header>
  </xsl:template>

  <xsl:template name="page-footer">
    <footer>
      <xsl:text>Published </xsl:text>
      <xsl:value-of select="@ReportDate"/>
      <xsl:text> at </xsl:text>
      <xsl:value-of select="@ReportTime"/>
      <xsl:text>.</xsl:text>
    </footer>
  </xsl:template>

  <!-- A class footnote may hold plain text or simple markup; either is shown as written. -->
  <xsl:template name="footnote">
    <xsl:if test="normalize-space(ClassFootNote) or ClassFootNote/*">
      <p class="note"><xsl:copy-of select="ClassFootNote/node()"/></p>
    </xsl:if>
  </xsl:template>

</xsl:stylesheet>
