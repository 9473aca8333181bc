<?xml version="1.0" encoding="UTF-8"?>
<!-- Race results, series standings, or both, for the browser: one section per class. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
  <xsl:include href="tallyboard-page.xsl"/>
  <xsl:output method="html" encoding="UTF-8" doctype-system="about:legacy-compat"/>

  <xsl:variable name="type" select="/RaceResults/@ReportType"/>

  <xsl:template match="/RaceResults">
    <xsl:variable name="kind">
      <xsl:choose>
        <xsl:when test="$type = 'SeriesResults'">Series standings</xsl:when>
        <xsl:when test="$type = 'CombinedResults'">Race results and series standings</xsl:when>
        <xsl:otherwise>Race results</xsl:otherwise>
      </xsl:choose>
    </xsl:variable>
    <html lang="en">
      <head>
        <xsl:call-template name="page-head">
          <xsl:with-param name="title" select="concat(@Series, ' – ', @Race, ' – ', $kind)"/>
        </xsl:call-template>
      </head>
      <body>
        <main>
          <xsl:call-template name="page-heading">
            <xsl:with-param name="kind" select="$kind"/>
          </xsl:call-template>
          <xsl:apply-templates select="ClassResults"/>
          <xsl:call-template name="page-footer"/>
        </main>
      </body>
    </html>
  </xsl:template>

  <xsl:template match="ClassResults">
    <section class="class {@href}" id="c{@ClassId}">
      <h2><xsl:value-of select="@Class"/></h2>
      <p class="class-facts">
        <xsl:choose>
          <xsl:when test="string(@StartTime)">
            <xsl:text>Started </xsl:text>
            <xsl:value-of select="@StartTime"/>
          </xsl:when>
          <xsl:otherwise>No start was recorded for this class</xsl:otherwise>
        </xsl:choose>
        <xsl:if test="Result">
          <xsl:text> · </xsl:text>
          <xsl:value-of select="count(Result)"/>
          <xsl:text> boats</xsl:text>
        </xsl:if>
      </p>
      <xsl:if test="string(@Comment)">
        <p class="note"><xsl:value-of select="@Comment"/></p>
      </xsl:if>
      <xsl:if test="$type != 'SeriesResults'">
        <xsl:if test="string(normalize-space(@Title))">
          <h3><xsl:value-of select="@Title"/></h3>
        </xsl:if>
        <xsl:call-template name="race-table"/>
      </xsl:if>
      <xsl:if test="$type != 'RaceResults'">
        <h3>
          <xsl:choose>
            <xsl:when test="$type = 'CombinedResults'"><xsl:value-of select="@SubTitle"/></xsl:when>
            <xsl:otherwise><xsl:value-of select="normalize-space(@Title)"/></xsl:otherwise>
          </xsl:choose>
        </h3>
        <xsl:call-template name="series-table"/>
      </xsl:if>
      <xsl:call-template name="footnote"/>
    </section>
  </xsl:template>

  <!-- Race results lead with what a sailor looks for, so a phone shows it without a swipe: place,
       boat, corrected time and points; position and boat stay in view when the rest scrolls. -->
  <xsl:template name="race-table">
    <xsl:choose>
      <xsl:when test="not(Result)">
        <p class="empty">No results for this class.</p>
      </xsl:when>
      <xsl:otherwise>
        <div class="scroll">
          <table class="race">
            <thead>
              <tr>
                <th class="num pos">Pos</th>
                <th class="boat">Boat</th>
                <th class="num">Corrected</th>
                <th class="num">Points</th>
                <th>Sail no</th>
                <th>Helm</th>
                <th class="wide model">Model</th>
                <th class="num">TCF</th>
                <th class="num wide">Finish</th>
                <th class="num wide">Elapsed</th>
                <th>Notes</th>
              </tr>
            </thead>
            <tbody>
              <xsl:for-each select="Result">
                <tr>
                  <td class="num pos"><xsl:value-of select="@Position"/></td>
                  <td class="boat"><xsl:value-of select="@BoatName"/></td>
                  <td class="num"><xsl:value-of select="@Corrected"/></td>
                  <td class="num total"><xsl:value-of select="@Points"/></td>
                  <td><xsl:value-of select="@SailNo"/></td>
                  <td><xsl:value-of select="@Skipper"/></td>
                  <td class="wide model"><xsl:value-of select="@BoatType"/></td>
                  <td class="num"><xsl:value-of select="@TCF"/></td>
                  <td class="num wide"><xsl:apply-templates select="@Finish" mode="time-of-day"/></td>
                  <td class="num wide"><xsl:value-of select="@Elapsed"/></td>
                  <td class="notes"><xsl:value-of select="@Notes"/></td>
                </tr>
              </xsl:for-each>
            </tbody>
          </table>
        </div>
        <xsl:call-template name="race-legend"/>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- What the codes in the notes mean: the outcomes this class's results use, and penalties. -->
  <xsl:template name="race-legend">
    <xsl:variable name="results" select="Result"/>
    <xsl:variable name="codes">
      <xsl:for-each select="document('')/*/xsl:variable[@name = 'status-codes']/code">
        <xsl:if test="$results[@Status = current()/@name]">
          <xsl:value-of select="concat(' · ', @name, ' ', .)"/>
        </xsl:if>
      </xsl:for-each>
    </xsl:variable>
    <p class="legend">
      <xsl:text>+min, +% and +pl in the notes: penalties in minutes, percent and places</xsl:text>
      <xsl:value-of select="$codes"/>
    </p>
  </xsl:template>

  <xsl:variable name="status-codes">
    <code name="BFD">black flag disqualification</code>
    <code name="DNC">did not come to the starting area</code>
    <code name="DNE">disqualification not excludable</code>
    <code name="DNF">did not finish</code>
    <code name="DNS">did not start</code>
    <code name="DSQ">disqualified</code>
    <code name="OCS">on the course side at the start</code>
    <code name="RAF">retired after finishing</code>
    <code name="RET">retired</code>
  </xsl:variable>

  <!-- Series standings put the total right after the boat, so it is in view on any screen; the
       races come in blocks of at most twenty, each block a table with position, boat, sail number
       and total, so that a long season fits a screen's width and an A4 page alike. Position and
       boat stay in view when a block scrolls sideways on a phone. -->
  <xsl:template name="series-table">
    <xsl:choose>
      <xsl:when test="not(SeriesResult)">
        <p class="empty">No series scores for this class yet.</p>
      </xsl:when>
      <xsl:otherwise>
        <xsl:variable name="blocks" select="count(Race) &gt; 20"/>
        <xsl:for-each select="Race[position() mod 20 = 1]">
          <xsl:variable name="first" select="position() * 20 - 20"/>
          <xsl:variable name="races" select="../Race[position() &gt; $first][position() &lt;= 20]"/>
          <div class="scroll">
            <table class="series">
              <xsl:if test="$blocks">
                <caption>
                  <xsl:apply-templates select="$races[1]" mode="short-name"/>
                  <xsl:text> – </xsl:text>
                  <xsl:apply-templates select="$races[last()]" mode="short-name"/>
                </caption>
              </xsl:if>
              <thead>
                <tr>
                  <th class="pos">Pos</th>
                  <th class="boat">Boat</th>
                  <th class="sail">Sail no</th>
                  <th class="total">Total</th>
                  <xsl:for-each select="$races">
                    <th title="{@Name}, {@Date}">
                      <xsl:apply-templates select="." mode="short-name"/>
                    </th>
                  </xsl:for-each>
                </tr>
              </thead>
              <tbody>
                <xsl:for-each select="../SeriesResult">
                  <tr>
                    <td class="pos"><xsl:value-of select="@Position"/></td>
                    <td class="boat"><xsl:value-of select="@BoatName"/></td>
                    <td class="sail"><xsl:value-of select="@SailNo"/></td>
                    <td class="total"><xsl:value-of select="@Points"/></td>
                    <!-- Walking the score attributes themselves keeps the test and the value at
                         the context node: the season's table has one cell per boat and race. -->
                    <xsl:for-each select="Score[position() &gt; $first][position() &lt;= 20]/@Pts">
                      <td>
                        <xsl:choose>
                          <xsl:when test="contains(., '*')">
                            <s class="discard"><xsl:value-of select="."/></s>
                          </xsl:when>
                          <xsl:otherwise><xsl:value-of select="."/></xsl:otherwise>
                        </xsl:choose>
                      </td>
                    </xsl:for-each>
                  </tr>
                </xsl:for-each>
              </tbody>
            </table>
          </div>
        </xsl:for-each>
        <p class="legend">Total: the sum of the race scores less the discards · * a discarded
          score, struck through: it does not count · a race a boat did not finish or start scores
          by its status, as on the race's results.</p>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- A race's short name for a column heading: "Race 12" reads R12. -->
  <xsl:template match="Race" mode="short-name">
    <xsl:choose>
      <xsl:when test="starts-with(@Name, 'Race ')">
        <xsl:value-of select="concat('R', substring-after(@Name, 'Race '))"/>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="@Name"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- "13 Apr 2026 12:31:05" reads 12:31:05; "-" (no finish) stays as it is. -->
  <xsl:template match="@*" mode="time-of-day">
    <xsl:choose>
      <xsl:when test="string-length(.) &gt; 12"><xsl:value-of select="substring(., 13)"/></xsl:when>
      <xsl:otherwise><xsl:value-of select="."/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

</xsl:stylesheet>
