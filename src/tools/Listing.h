// Lists on standard output, for people or for scripts.
#pragma once

#include <vector>

#include "tools/Json.h"
#include "tools/Verbs.h"

namespace quorvi::tools {

/// Prints each of the items as a line, or all as the one member of a JSON object.
template <typename Items>
void printList(Format format, const char* key, const Items& items,
    void (*printLine)(const typename Items::value_type&), Json (*json)(const typename Items::value_type&)) {
    std::vector<Json> list;
    for (const auto& item : items)
        if (format == Format::text)
            printLine(item);
        else
            list.push_back(json(item));
    if (format == Format::json)
        print(Json::object({{key, Json::array(list)}}));
}

} // namespace quorvi::tools
