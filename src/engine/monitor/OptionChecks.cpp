#include "monitor/OptionChecks.h"

#include <QSet>
#include <QStringList>

namespace twk {

namespace {

bool numericPart(const QString& part, int low, int high) {
    if (part.isEmpty() || part.size() > 3)
        return false;
    for (const QChar c : part)
        if (c < u'0' || c > u'9')
            return false;
    const int value = part.toInt();
    return value >= low && value <= high;
}

const QSet<QString>& topLevelDomains() {
    static const QSet<QString> domains = [] {
        QSet<QString> set;
        for (const char* d : {"com", "net", "edu", "arpa", "org", "gov", "museum", "biz", "info",
                              "pro", "name", "aero", "coop", "mil"})
            set.insert(QLatin1String(d));
        const QString twoLetters = QStringLiteral(
            "ac ad ae af ag ai al am an ao aq ar as at au aw az ba bb bd be bf bg bh bi bj bm bn "
            "bo br bs bt bv bw by bz ca cc cd cf cg ch ci ck cl cm cn co cr cu cv cx cy cz de dj "
            "dk dm do dz ec ee eg eh er es et fi fj fk fm fo fr ga gd ge gf gg gh gi gl gm gn gp "
            "gq gr gs gt gu gw gy hk hm hn hr ht hu id ie il im in io iq ir is it je jm jo jp ke "
            "kg kh ki km kn kp kr kw ky kz la lb lc li lk lr ls lt lu lv ly ma mc md mg mh mk ml "
            "mm mn mo mp mq mr ms mt mu mv mw mx my mz na nc ne nf ng ni nl no np nr nu nz om pa "
            "pe pf pg ph pk pl pm pn pr ps pt pw py qa re ro ru rw sa sb sc sd se sg sh si sj sk "
            "sl sm sn so sr st sv sy sz tc td tf tg th tj tk tm tn to tp tr tt tv tw tz ua ug uk "
            "um us uy uz va vc ve vg vi vn vu wf ws ye yt yu za zm zr zw eu");
        for (const QString& d : twoLetters.split(u' ', Qt::SkipEmptyParts))
            set.insert(d);
        return set;
    }();
    return domains;
}

// The code of a character in the 8-bit code page; "?" for what it cannot hold.
int codeOf(QChar c) {
    return c.unicode() < 256 ? c.unicode() : '?';
}

int keyCode(const QString& key, qsizetype position) {
    return key.isEmpty() ? 0 : codeOf(key[position % key.size()]);
}

} // namespace

bool fCheckIP(const QString& text) {
    if (text.size() > 15)
        return false;
    const QStringList parts = text.split(u'.');
    return parts.size() == 4 && numericPart(parts[0], 10, 255) && numericPart(parts[1], 0, 255) &&
           numericPart(parts[2], 0, 255) && numericPart(parts[3], 1, 255);
}

bool IsValidEMailAddress(QString& address) {
    address = address.toLower();
    const QStringList at = address.split(u'@');
    if (at.size() != 2)
        return false;
    const QStringList domain = at[1].split(u'.');
    if (domain.size() < 2 || !topLevelDomains().contains(domain.last()))
        return false;
    static const QString allowed = QStringLiteral("abcdefghijklmnopqrstuvwxyz0123456789.-_@");
    for (const QChar c : address)
        if (!allowed.contains(c))
            return false;
    return true;
}

QString EncodeString(const QString& text, const QString& key) {
    QString out;
    out.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const int s = codeOf(text[i]) + keyCode(key, i);
        out += QChar(s < 256 ? s : s - 255);
    }
    return out;
}

QString DecodeString(const QString& text, const QString& key) {
    QString out;
    out.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const int d = codeOf(text[i]) - keyCode(key, i);
        out += QChar(d >= 0 ? d : d + 255);
    }
    return out;
}

QString GetPathOrFileName(const QString& path, bool folder) {
    const qsizetype slash = std::max(path.lastIndexOf(u'\\'), path.lastIndexOf(u'/'));
    if (slash < 0)
        return folder ? QString() : path;
    return folder ? path.left(slash) : path.mid(slash + 1);
}

} // namespace twk
