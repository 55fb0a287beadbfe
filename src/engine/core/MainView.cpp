#include "core/MainView.h"

#include <QDate>
#include <QTime>

namespace twk {

namespace {

// Menu entries with their image keys, in menu order.
const std::pair<const char*, const char*> kMenuIcons[] = {
    {"mnuOpen", "OPEN"},
    {"mnuSave", "SAVE"},
    {"mnuReload", "RELOAD"},
    {"mnuCloseFile", "CLOSE"},
    {"mnuLogin", "NOVELL"},
    {"mnuExit", "EXIT1"},
    {"mnuErrCode", "NOVELL"},
    {"mnuTID", "TID"},
    {"mnuRC", "RCONSOLE"},
    {"mnuConfigReport", "CONFIGREPORT"},
    {"mnuHealthCheck", "HEALTHCHECK"},
    {"mnuRTM", "RTMONITOROFF"},
    {"mnuFilter", "FILTER"},
    {"mnuFind", "FIND"},
    {"mnuGoto", "GOTO"},
    {"mnuAnalyzer", "CANALYSER"},
    {"mnuViewAll", "POINT"},
    {"mnuViewFilter", "NOPOINT"},
    {"mnuRCOptions", "RCONSOLE"},
    {"mnuRTMOptions", "RTMONITORON"},
    {"mnuRTMFilterRules", "RTEFILTER"},
    {"mnuHealthCheckOptions", "HEALTHCHECK"},
    {"mnuHelp", "HELP"},
    {"mnuLOES", "TUX"},
    {"mnuTipOfTheDay", "BULB"},
    {"mnuNetworkTroubleshooting", "NETWORK"},
    {"mnuHomepage", "HOMEPAGE"},
    {"mnuEMail", "EMAIL"},
    {"mnuUpdateCheck", "UPDATE"},
    {"mnuEventIcons", "EVENT"},
    {"mnuStatusIcons", "STATUS"},
};

const char* const kLogMenus[] = {"mnuFilter", "mnuFind",   "mnuGoto",
                                 "mnuSave",   "mnuReload", "mnuCloseFile"};

} // namespace

MainView::MainView() {
    for (const auto& [name, icon] : kMenuIcons)
        menus_[QString::fromLatin1(name)].icon = QString::fromLatin1(icon);
    menus_[QStringLiteral("mnuTrennlinie6")];
    menus_[QStringLiteral("mnuAbout")];
    menus_[QStringLiteral("mnuCloseFile")].caption = QStringLiteral("&close logfile");
    panes_[0] = {QStringLiteral("EntryPos"), QString(), QStringLiteral("imgFile"), QString()};
    panes_[1] = {QStringLiteral("LastEntry"), QString(), QStringLiteral("imgFirst"), QString()};
    panes_[2] = {QStringLiteral("FirstEntry"), QString(), QStringLiteral("imgLast"), QString()};
    panes_[3] = {QStringLiteral("FileSize"), QString(), QStringLiteral("imgFileSize"), QString()};
    panes_[4] = {QStringLiteral("Tips"), QString(), QStringLiteral("imgNoFlag"), QString()};
    panes_[5] = {QStringLiteral("SystemDate"), QDate::currentDate().toString(Qt::ISODate),
                 QStringLiteral("imgDate"), QString()};
    panes_[6] = {QStringLiteral("SystemTime"),
                 QTime::currentTime().toString(QStringLiteral("hh:mm")), QStringLiteral("imgTime"),
                 QString()};
    resetPanes();
    setMenusNothingOpen();
    cbTree.resetTo(QStringLiteral("tree"));
    cbServer.resetTo(QStringLiteral("server"));
    cbVolume.resetTo(QStringLiteral("volume"));
    cbLogFile.resetTo(QStringLiteral("logfile"));
    cbAbendLog.visible = false;
}

bool MainView::menuEnabled(const QString& name) const {
    const auto it = menus_.find(name);
    return it != menus_.end() && it->second.enabled;
}

bool MainView::menuVisible(const QString& name) const {
    const auto it = menus_.find(name);
    return it != menus_.end() && it->second.visible;
}

void MainView::holdCascade() {
    if (!cascadeHeld_)
        cascadeEnabled_ = {cbTree.enabled, cbServer.enabled, cbVolume.enabled};
    cascadeHeld_ = true;
    cbTree.enabled = cbServer.enabled = cbVolume.enabled = false;
}

void MainView::releaseCascade() {
    if (!cascadeHeld_)
        return;
    cascadeHeld_ = false;
    cbTree.enabled = cascadeEnabled_[0];
    cbServer.enabled = cascadeEnabled_[1];
    cbVolume.enabled = cascadeEnabled_[2];
}

void MainView::resetPanes() {
    pane(EntryPos).text = QStringLiteral("x/y");
    pane(EntryPos).icon = QStringLiteral("imgFile");
    pane(EntryPos).toolTip = QStringLiteral(" selected event / total events ");
    pane(LastEntry).text = QStringLiteral("last entry");
    pane(LastEntry).toolTip = QStringLiteral(" last entry ");
    pane(FirstEntry).text = QStringLiteral("first entry");
    pane(FirstEntry).toolTip = QStringLiteral(" first entry ");
    pane(FileSize).text = QStringLiteral("file size");
    pane(Tips).text = QString();
    pane(Tips).icon = QStringLiteral("imgNoFlag");
}

void MainView::setViewBullets(bool allSelected) {
    menu(QStringLiteral("mnuViewAll")).icon =
        allSelected ? QStringLiteral("POINT") : QStringLiteral("NOPOINT");
    menu(QStringLiteral("mnuViewFilter")).icon =
        allSelected ? QStringLiteral("NOPOINT") : QStringLiteral("POINT");
}

void MainView::setMenusNothingOpen() {
    for (const char* name : kLogMenus)
        menu(QString::fromLatin1(name)).enabled = false;
    menu(QStringLiteral("mnuViewAll")).enabled = false;
    menu(QStringLiteral("mnuViewFilter")).enabled = false;
    menu(QStringLiteral("mnuStatusIcons")).visible = false;
    menu(QStringLiteral("mnuEventIcons")).visible = false;
    menu(QStringLiteral("mnuTrennlinie6")).visible = false;
    menu(QStringLiteral("mnuAnalyzer")).visible = false;
    setViewBullets(true);
}

void MainView::setMenusLogOpen(const QString& kind) {
    for (const char* name : kLogMenus)
        menu(QString::fromLatin1(name)).enabled = true;
    menu(QStringLiteral("mnuViewAll")).enabled = false;
    menu(QStringLiteral("mnuViewFilter")).enabled = false;
    const bool sysLog = kind == views::kSysLogErr;
    menu(QStringLiteral("mnuStatusIcons")).visible = sysLog;
    menu(QStringLiteral("mnuEventIcons")).visible = sysLog;
    menu(QStringLiteral("mnuTrennlinie6")).visible = sysLog;
    menu(QStringLiteral("mnuAnalyzer")).visible = kind == views::kConsoleLog;
    // The console log has its navigator in place of the go-to dialog.
    menu(QStringLiteral("mnuGoto")).visible = kind != views::kConsoleLog;
    setViewBullets(true);
}

} // namespace twk
