#include "ui/ListLines.h"

#include <QLabel>
#include <QListWidget>
#include <QStyle>

#include "data/Conversions.h"

namespace tb {

namespace {
QString Text(const std::string& text) {
    return QString::fromStdString(text);
}
QString ShortDate(const Value& date) {
    return Text(Format(date, "dd/mm/yy"));
}
}  // namespace

QString ScheduleLine(const Value& raceDate, bool inSubSeries, const std::string& raceName) {
    return ShortDate(raceDate) + (inSubSeries ? "*  " : "   ") + Text(raceName);
}

QString RaceColumnsHeader() {
    return QString("Date").leftJustified(11) + "Race title";
}

QString ClassSplitLine(const std::string& className, const std::string& handicapType,
                       const Value& minTcf) {
    return Text(className).leftJustified(32) + Text(handicapType).leftJustified(16) +
           Text(Format(minTcf, "0.000"));
}

QString ClassColumnsHeader() {
    return QString("Class name").leftJustified(32) + QString("Handicap type").leftJustified(16) +
           "Min TCF";
}

QString BoatLine(const std::string& boatName, const std::string& fullSailNo) {
    return (Text(boatName) + " ").leftJustified(34) + Text(fullSailNo);
}

QString EntryRaceLine(const Value& raceDate, bool inSubSeries, const std::string& raceName,
                      const QString& handicaps) {
    return QString(inSubSeries ? "*" : " ") + ShortDate(raceDate) + " " +
           Text(raceName).left(28).leftJustified(29) + handicaps;
}

QString EntryRaceColumnsHeader() {
    return QString(" Date").leftJustified(10) + QString("Race").leftJustified(29) + "Handicap";
}

QString HandicapText(const Value& tcf) {
    return tcf.IsText() ? Text(tcf.ToText()) : Text(Format(tcf, "0.000"));
}

}  // namespace tb

namespace tb {

void AlignHeading(QLabel* heading, const QListWidget* list, bool checkable) {
    const QStyle* style = list->style();
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, list) + 1;
    int indent = list->frameWidth() + margin;
    if (checkable)
        indent += style->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, list);
    heading->setIndent(indent);
}

}  // namespace tb
