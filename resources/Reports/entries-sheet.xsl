<?xml version="1.0" encoding="UTF-8"?>
<!-- Entry lists for a spreadsheet program: one row per boat, the class in a column. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
  <xsl:output method="html" encoding="UTF-8"/>

  <xsl:template match="/RaceEntries">
    <html>
      <head><title><xsl:value-of select="concat(@Series, ' - ', @Race)"/></title></head>
      <body>
        <table>
          <tr>
            <th>Class</th><th>Handicap type</th><th>Boat</th><th>Model</th><th>Sail no</th>
            <th>Full sail no</th><th>Helm</th><th>Entry</th><th>TCF</th><th>Draft</th><th>LOA</th>
          </tr>
          <xsl:for-each select="ClassList/Entry">
            <tr>
              <td><xsl:value-of select="../@Class"/></td>
              <td><xsl:value-of select="../@HandicapType"/></td>
              <td><xsl:value-of select="@BoatName"/></td>
              <td><xsl:value-of select="@BoatType"/></td>
              <td><xsl:value-of select="@SailNo"/></td>
              <td><xsl:value-of select="@FullSailNo"/></td>
              <td><xsl:value-of select="@Entrant"/></td>
              <td><xsl:value-of select="@SeriesEntrant"/></td>
              <td><xsl:value-of select="@TCF"/></td>
              <td><xsl:value-of select="@Draft"/></td>
              <td><xsl:value-of select="@LOA"/></td>
            </tr>
          </xsl:for-each>
        </table>
      </body>
    </html>
  </xsl:template>
</xsl:stylesheet>
