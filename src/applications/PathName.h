// Names within paths. Paths are the file system's bytes, or text of any encoding that keeps "/".
#pragma once

#include <string_view>

namespace quorvi {

inline constexpr std::string_view kApplicationExtension = ".app";

/// The last component of a path, ignoring closing slashes: "/" for "/", and empty for an empty path.
[[nodiscard]] constexpr std::string_view lastComponent(std::string_view path) {
    while (path.size() > 1 && path.ends_with('/'))
        path.remove_suffix(1);
    if (path.size() > 1)
        path.remove_prefix(path.rfind('/') + 1); // npos + 1 is 0: no slash
    return path;
}

/// The name without a closing ".app", unless it is the whole name.
template <typename Text>
[[nodiscard]] constexpr Text withoutApplicationExtension(Text name) {
    const auto size = kApplicationExtension.size();
    if (name.size() <= size)
        return name;
    for (std::size_t i = 0; i < size; ++i)
        if (name[name.size() - size + i] != static_cast<typename Text::value_type>(kApplicationExtension[i]))
            return name;
    return Text(name.substr(0, name.size() - size));
}

} // namespace quorvi
