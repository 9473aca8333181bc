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
                <th class="num">Pos</th>
                <th>Boat</th>
                <th>Sail no</th>
                <th class="wide model">Model</th>
                <th>Helm</th>
                <th class="num">TCF</th>
                <th class="num wide">Finish</th>
                <th class="num wide">Elapsed</th>
                <th class="num">Corrected</th>
                <th class="num">Points</th>
                <th>Notes</th>
              </tr>
            </thead>
            <tbody>
              <xsl:for-each select="Result">
                <tr>
                  <td class="num pos"><xsl:value-of select="@Position"/></td>
                  <td class="boat"><xsl:value-of select="@BoatName"/></td>
                  <td><xsl:value-of select="@SailNo"/></td>
                  <td class="wide model"><xsl:value-of select="@BoatType"/></td>
                  <td><xsl:value-of select="@Skipper"/></td>
                  <td class="num"><xsl:value-of select="@TCF"/></td>
                  <td class="num wide"><xsl:apply-templates select="@Finish" mode="time-of-day"/></td>
                  <td class="num wide"><xsl:value-of select="@Elapsed"/></td>
                  <td class="num"><xsl:value-of select="@Corrected"/></td>
                  <td class="num total"><xsl:value-of select="@Points"/></td>
                  <td class="notes"><xsl:value-of select="@Notes"/></td>
                </tr>
              </xsl:for-each>
            </tbody>
          </table>
        </div>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template name="series-table">
    <xsl:choose>
      <xsl:when test="not(SeriesResult)">
        <p class="empty">No series scores for this class yet.</p>
      </xsl:when>
      <xsl:otherwise>
        <div class="scroll">
          <table class="series">
            <thead>
              <tr>
                <th class="num">Pos</th>
                <th>Boat</th>
                <th>Sail no</th>
                <xsl:for-each select="Race">
                  <th class="num" title="{@Name}, {@Date}">
                    <xsl:choose>
                      <xsl:when test="starts-with(@Name, 'Race ')">
                        <xsl:value-of select="concat('R', substring-after(@Name, 'Race '))"/>
                      </xsl:when>
                      <xsl:otherwise><xsl:value-of select="@Name"/></xsl:otherwise>
                    </xsl:choose>
                  </th>
                </xsl:for-each>
                <th class="num">Total</th>
              </tr>
            </thead>
            <tbody>
              <xsl:for-each select="SeriesResult">
                <tr>
                  <td class="num pos"><xsl:value-of select="@Position"/></td>
                  <td class="boat"><xsl:value-of select="@BoatName"/></td>
                  <td><xsl:value-of select="@SailNo"/></td>
                  <!-- Walking the score attributes themselves keeps the test and the value at
                       the context node: the season's table has one cell per boat and race. -->
                  <xsl:for-each select="Score/@Pts">
                    <td class="num">
                      <xsl:choose>
                        <xsl:when test="contains(., '*')">
                          <span class="discard" title="discarded"><xsl:value-of select="."/></span>
                        </xsl:when>
                        <xsl:otherwise><xsl:value-of select="."/></xsl:otherwise>
                      </xsl:choose>
                    </td>
                  </xsl:for-each>
                  <td class="num total"><xsl:value-of select="@Points"/></td>
                </tr>
              </xsl:for-each>
            </tbody>
          </table>
        </div>
      </xsl:otherwise>
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
