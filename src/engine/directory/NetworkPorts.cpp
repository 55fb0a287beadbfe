#include "directory/NetworkPorts.h"

namespace twk {

QStringList searchResultList(const SearchResults& results) {
    if (const auto* single = std::get_if<QString>(&results))
        return QStringList{*single};
    if (const auto* list = std::get_if<QStringList>(&results))
        return *list;
    return {};
}

} // namespace twk
