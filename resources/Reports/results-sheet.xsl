<?xml version="1.0" encoding="UTF-8"?>
<!-- Results for a spreadsheet program: plain tables, one row per boat, the class in a column. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
  <xsl:output method="html" encoding="UTF-8"/>

  <xsl:variable name="type" select="/RaceResults/@ReportType"/>

  <xsl:template match="/RaceResults">
    <html>
      <head><title><xsl:value-of select="concat(@Series, ' - ', @Race)"/></title></head>
      <body>
        <table>
          <tr><td><xsl:value-of select="@Organisation"/></td></tr>
          <tr><td><xsl:value-of select="@Series"/></td></tr>
          <tr><td><xsl:value-of select="concat(@Race, ' ', @ScheduleDate)"/></td></tr>
        </table>
        <xsl:if test="$type != 'SeriesResults'">
          <table>
            <tr>
              <th>Class</th><th>Start</th><th>Pos</th><th>Boat</th><th>Sail no</th><th>Model</th>
              <th>Helm</th><th>TCF</th><th>Finish</th><th>Elapsed</th><th>Corrected</th>
              <th>Points</th><th>Status</th><th>Notes</th>
            </tr>
            <xsl:for-each select="ClassResults/Result">
              <tr>
                <td><xsl:value-of select="../@Class"/></td>
                <td><xsl:value-of select="../@StartTime"/></td>
                <td><xsl:value-of select="@Position"/></td>
                <td><xsl:value-of select="@BoatName"/></td>
                <td><xsl:value-of select="@SailNo"/></td>
                <td><xsl:value-of select="@BoatType"/></td>
                <td><xsl:value-of select="@Skipper"/></td>
                <td><xsl:value-of select="@TCF"/></td>
                <td><xsl:value-of select="@Finish"/></td>
                <td><xsl:value-of select="@Elapsed"/></td>
                <td><xsl:value-of select="@Corrected"/></td>
                <td><xsl:value-of select="@Points"/></td>
                <td><xsl:value-of select="@Status"/></td>
                <td><xsl:value-of select="@Notes"/></td>
              </tr>
            </xsl:for-each>
          </table>
        </xsl:if>
        <xsl:if test="$type != 'RaceResults'">
          <xsl:for-each select="ClassResults[SeriesResult]">
            <table>
              <tr><td></td></tr>
              <tr>
                <th>Class</th><th>Pos</th><th>Boat</th><th>Sail no</th>
                <xsl:for-each select="Race"><th><xsl:value-of select="@Name"/></th></xsl:for-each>
                <th>Total</th>
              </tr>
              <xsl:for-each select="SeriesResult">
                <tr>
                  <td><xsl:value-of select="../@Class"/></td>
                  <td><xsl:value-of select="@Position"/></td>
                  <td><xsl:value-of select="@BoatName"/></td>
                  <td><xsl:value-of select="@SailNo"/></td>
                  <xsl:for-each select="Score"><td><xsl:value-of select="@Pts"/></td></xsl:for-each>
                  <td><xsl:value-of select="@Points"/></td>
                </tr>
              </xsl:for-each>
            </table>
          </xsl:for-each>
        </xsl:if>
      </body>
    </html>
  </xsl:template>
</xsl:stylesheet>
