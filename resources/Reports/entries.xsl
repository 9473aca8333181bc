<?xml version="1.0" encoding="UTF-8"?>
<!-- Entry lists for the browser: by handicap (per class, highest TCF first), by sail number (one
     list for the finish line), and class sheets for writing finishes on, one class a page. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
  <xsl:include href="tallyboard-page.xsl"/>
  <xsl:output method="html" encoding="UTF-8" doctype-system="about:legacy-compat"/>

  <xsl:variable name="type" select="/RaceEntries/@ReportType"/>

  <xsl:template match="/RaceEntries">
    <xsl:variable name="kind">
      <xsl:choose>
        <xsl:when test="$type = 'EntryListBySailNo'">Entry list by sail number</xsl:when>
        <xsl:when test="$type = 'ClassSheet'">Class sheets</xsl:when>
        <xsl:otherwise>Entry list by handicap</xsl:otherwise>
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
          <xsl:if test="$type = 'ClassSheet'">
            <xsl:attribute name="class">sheet-per-page</xsl:attribute>
          </xsl:if>
          <xsl:call-template name="page-heading">
            <xsl:with-param name="kind" select="$kind"/>
            <xsl:with-param name="class-menu" select="$type != 'EntryListBySailNo'"/>
            <xsl:with-param name="selection">
              <xsl:value-of select="ClassList[1]/@Title"/>
              <xsl:text> · </xsl:text>
              <xsl:value-of select="count(ClassList/Entry)"/>
              <xsl:text> boats</xsl:text>
            </xsl:with-param>
          </xsl:call-template>
          <xsl:choose>
            <xsl:when test="$type = 'EntryListBySailNo'">
              <xsl:call-template name="by-sail-number"/>
            </xsl:when>
            <xsl:when test="$type = 'ClassSheet'">
              <xsl:apply-templates select="ClassList" mode="sheet"/>
            </xsl:when>
            <xsl:otherwise>
              <xsl:apply-templates select="ClassList" mode="handicap"/>
            </xsl:otherwise>
          </xsl:choose>
          <p class="legend">* series entrant · # sub-series entrant · a TCF of 9.999 means the
            boat has no valid handicap for this race.</p>
          <xsl:call-template name="page-footer"/>
        </main>
      </body>
    </html>
  </xsl:template>

  <xsl:template name="class-heading">
    <h2><xsl:value-of select="@Class"/></h2>
    <p class="class-facts">
      <xsl:value-of select="count(Entry)"/>
      <xsl:text> boats · handicaps: </xsl:text>
      <xsl:value-of select="@HandicapType"/>
    </p>
  </xsl:template>

  <xsl:template match="ClassList" mode="handicap">
    <section class="class {@href}" id="c{@ClassId}">
      <xsl:call-template name="class-heading"/>
      <xsl:choose>
        <xsl:when test="not(Entry)">
          <p class="empty">No boats are entered in this class.</p>
        </xsl:when>
        <xsl:otherwise>
          <div class="scroll">
            <table>
              <thead>
                <tr>
                  <th class="num">TCF</th>
                  <th>Boat</th>
                  <th>Sail no</th>
                  <th class="wide">Model</th>
                  <th>Helm</th>
                  <th class="num wide">LOA</th>
                  <th class="num wide">Draft</th>
                  <th>Entry</th>
                </tr>
              </thead>
              <tbody>
                <xsl:for-each select="Entry">
                  <tr>
                    <td class="num total"><xsl:value-of select="@TCF"/></td>
                    <td class="boat"><xsl:value-of select="@BoatName"/></td>
                    <td><xsl:value-of select="@FullSailNo"/></td>
                    <td class="wide"><xsl:value-of select="@BoatType"/></td>
                    <td><xsl:value-of select="@Entrant"/></td>
                    <td class="num wide"><xsl:value-of select="@LOA"/></td>
                    <td class="num wide"><xsl:value-of select="@Draft"/></td>
                    <td><xsl:value-of select="@SeriesEntrant"/></td>
                  </tr>
                </xsl:for-each>
              </tbody>
            </table>
          </div>
        </xsl:otherwise>
      </xsl:choose>
    </section>
  </xsl:template>

  <xsl:template name="by-sail-number">
    <section class="class">
      <div class="scroll">
        <table>
          <thead>
            <tr>
              <th>Sail no</th>
              <th>Boat</th>
              <th>Class</th>
              <th class="wide">Model</th>
              <th>Helm</th>
              <th class="num">TCF</th>
              <th>Entry</th>
            </tr>
          </thead>
          <tbody>
            <xsl:for-each select="ClassList/Entry">
              <xsl:sort select="@SailNo" data-type="number"/>
              <xsl:sort select="@FullSailNo"/>
              <tr>
                <td class="total"><xsl:value-of select="@FullSailNo"/></td>
                <td class="boat"><xsl:value-of select="@BoatName"/></td>
                <td><xsl:value-of select="../@Class"/></td>
                <td class="wide"><xsl:value-of select="@BoatType"/></td>
                <td><xsl:value-of select="@Entrant"/></td>
                <td class="num"><xsl:value-of select="@TCF"/></td>
                <td><xsl:value-of select="@SeriesEntrant"/></td>
              </tr>
            </xsl:for-each>
          </tbody>
        </table>
      </div>
    </section>
  </xsl:template>

  <xsl:template match="ClassList" mode="sheet">
    <section class="class {@href}" id="c{@ClassId}">
      <xsl:call-template name="class-heading"/>
      <p class="class-facts">Start time: ____________ · Race officer: ______________________</p>
      <table>
        <thead>
          <tr>
            <th>Sail no</th>
            <th>Boat</th>
            <th>Helm</th>
            <th class="num">TCF</th>
            <th class="write-in">Finish time</th>
            <th class="write-in">Notes</th>
          </tr>
        </thead>
        <tbody>
          <xsl:for-each select="Entry">
            <xsl:sort select="@SailNo" data-type="number"/>
            <tr class="write-row">
              <td class="total"><xsl:value-of select="@FullSailNo"/></td>
              <td class="boat"><xsl:value-of select="@BoatName"/></td>
              <td><xsl:value-of select="@Entrant"/></td>
              <td class="num"><xsl:value-of select="@TCF"/></td>
              <td class="write-in"></td>
              <td class="write-in"></td>
            </tr>
          </xsl:for-each>
          <xsl:call-template name="blank-row"/>
          <xsl:call-template name="blank-row"/>
        </tbody>
      </table>
    </section>
  </xsl:template>

  <!-- Room for a boat that enters on the day. -->
  <xsl:template name="blank-row">
    <tr class="write-row">
      <td></td><td></td><td></td><td></td><td class="write-in"></td><td class="write-in"></td>
    </tr>
  </xsl:template>

</xsl:stylesheet>
