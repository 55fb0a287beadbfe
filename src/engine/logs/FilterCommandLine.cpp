#include "logs/FilterCommandLine.h"

#include "logs/EventFilterForm.h"
#include "logs/LogDate.h"
#include "logs/Vocabulary.h"

namespace twk {

const QStringList kSeverityWords = {QStringLiteral("informational"), QStringLiteral("warning"),
                                    QStringLiteral("recovered"),     QStringLiteral("aborted-nos"),
                                    QStringLiteral("aborted"),       QStringLiteral("critical"),
                                    QStringLiteral("fatal"),         QStringLiteral("unknown")};

namespace {

// Splits "a,b" lists and checks every word.
QString addSeverities(const QString& value, QStringList& to) {
    for (const QString& part : value.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        const QString word = part.trimmed().toLower();
        if (!kSeverityWords.contains(word))
            return QStringLiteral("unknown severity \"%1\"; use %2")
                .arg(part.trimmed(), kSeverityWords.join(QStringLiteral(", ")));
        to << word;
    }
    return {};
}

// Selects the item of a list that matches without regard to case.
bool selectItem(ListState& list, const QString& wanted) {
    for (int i = 0; i < list.items.size(); ++i)
        if (list.items[i].compare(wanted, Qt::CaseInsensitive) == 0) {
            list.ListIndex = i;
            return true;
        }
    return false;
}

QString notInList(const char* what, const QString& value, const ListState& list) {
    return QStringLiteral("unknown %1 \"%2\"; one of: %3")
        .arg(QLatin1String(what), value, list.items.mid(1).join(QStringLiteral(", ")));
}

} // namespace

QString parseFilterArguments(const QStringList& args, FilterArguments& out) {
    for (int i = 0; i < args.size(); ++i) {
        const QString& a = args[i];
        if (!a.startsWith(QStringLiteral("--"))) {
            if (!out.file.isEmpty())
                return QStringLiteral("more than one file given");
            out.file = a;
            continue;
        }
        if (i + 1 >= args.size())
            return QStringLiteral("the option %1 lacks its value").arg(a);
        const QString& value = args[++i];
        if (a == QStringLiteral("--format")) {
            if (value != QStringLiteral("json") && value != QStringLiteral("csv"))
                return QStringLiteral("the format is json or csv");
            out.format = value;
        } else if (a == QStringLiteral("--hide")) {
            if (QString problem = addSeverities(value, out.hide); !problem.isEmpty())
                return problem;
        } else if (a == QStringLiteral("--only")) {
            if (QString problem = addSeverities(value, out.only); !problem.isEmpty())
                return problem;
            if (out.only.isEmpty())
                return QStringLiteral("--only needs at least one severity");
        } else if (a == QStringLiteral("--source")) {
            out.source = value;
        } else if (a == QStringLiteral("--category")) {
            out.category = value;
        } else if (a == QStringLiteral("--event-type")) {
            out.eventType = value;
        } else if (a == QStringLiteral("--error-nr")) {
            out.errorNr = value;
        } else if (a == QStringLiteral("--message")) {
            out.message = value;
        } else if (a == QStringLiteral("--from") || a == QStringLiteral("--to")) {
            const QDate date = logDateValue(value.toStdString());
            if (!date.isValid())
                return QStringLiteral(
                           "\"%1\" is no date; write 2003-01-15, 1-15-2003 or 15.01.2003")
                    .arg(value);
            (a == QStringLiteral("--from") ? out.from : out.to) = date;
        } else {
            return QStringLiteral("unknown option %1").arg(a);
        }
    }
    if (out.file.isEmpty())
        return QStringLiteral("no file given");
    return {};
}

QString applyFilterArguments(const FilterArguments& a, FrmFilterSYSLOG& form) {
    if (!a.only.isEmpty())
        for (int i = 0; i < kSeverityWords.size(); ++i)
            form.severityBox(i)->checked = a.only.contains(kSeverityWords[i]);
    for (const QString& word : a.hide)
        form.severityBox(static_cast<int>(kSeverityWords.indexOf(word)))->checked = false;

    if (a.source) {
        if (!selectItem(form.cbSource, *a.source))
            return notInList("source", *a.source, form.cbSource);
        form.cbSource_Click();
    }
    if (a.category) {
        if (!selectItem(form.cbCategory, *a.category))
            return notInList("category", *a.category, form.cbCategory);
        form.cbCategory_Click();
    }
    if (a.eventType) {
        QString wanted = *a.eventType;
        // An image key ("NCP-NEW") stands for its type's name.
        const int image = EventTypeImageOfKey(wanted.toUpper().toStdString());
        if (image >= 0) {
            const std::string_view name = EventTypeName(image);
            wanted = QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
        }
        if (!selectItem(form.cbEventType, wanted))
            return notInList("event type", *a.eventType, form.cbEventType);
        form.cbEventType_Click();
    }
    if (a.errorNr) {
        form.txbErrorNr_GotFocus();
        form.txbErrorNr.text = *a.errorNr;
    }
    if (a.message) {
        form.txbErrMsg_GotFocus();
        form.txbErrMsg.text = *a.message;
    }
    if (a.from) {
        form.cbStartDate.ListIndex = 1;
        form.cbStartDate_Click();
        form.calStartDate.Value = *a.from;
    }
    if (a.to) {
        form.cbEndDate.ListIndex = 1;
        form.cbEndDate_Click();
        form.calEndDate.Value = *a.to;
    }
    return {};
}

} // namespace twk
