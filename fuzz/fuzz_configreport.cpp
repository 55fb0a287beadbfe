// Feeds arbitrary bytes to the configuration report viewer's engine: the bytes up to
// the first "\f" are one report, the rest the other; both are split into sections and
// compared, the differences formatted, and a search run over each.

#include "tools/ConfigReportCompare.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const qsizetype split = bytes.indexOf('\f');
    twk::ConfigReportText left;
    twk::ConfigReportText right;
    left.setBytes(split < 0 ? bytes : bytes.left(split));
    right.setBytes(split < 0 ? QByteArray() : bytes.mid(split + 1));
    const twk::ReportComparison comparison = twk::compareReports(left, right);
    std::size_t rows = 0;
    twk::formatDifferences(comparison, left, right, [&](const QString&) { ++rows; });
    for (const twk::ConfigReportText* r : {&left, &right}) {
        r->find(QStringLiteral("set"), 0, true);
        r->find(QStringLiteral("Modul"), r->lineCount() - 1, false);
        for (int i = 0; i < r->lineCount() && i < 64; ++i)
            (void)r->line(i);
    }
    (void)comparison.nextDifference(0);
    (void)rows;
    return 0;
}
