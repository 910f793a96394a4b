// The text of an XML property list being written. Private to this library.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "plist/Value.h"

namespace quorvi::plist {

/// Writes lines exactly as libplist does, indented by depth.
class XmlText {
  public:
    static constexpr std::string_view kProlog = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                                "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                                                "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                                                "<plist version=\"1.0\">\n";
    static constexpr std::string_view kEpilog = "</plist>\n";

    /// Writes into the room, over what stands there.
    explicit XmlText(std::string room) : m_text(std::move(room)) { m_text = kProlog; }

    /// A line written unchanged.
    void line(std::string_view content) {
        indent(m_depth);
        m_text.append(content).push_back('\n');
    }
    /// The start tag of a container; the next lines are one level deeper.
    void open(std::string_view startTag) {
        line(startTag);
        ++m_depth;
    }
    void close(std::string_view endTag) {
        --m_depth;
        line(endTag);
    }
    void integer(std::int64_t number);

    /// The content between the tags.
    struct Escaped {
        std::size_t entities;
        std::size_t length;
    };
    /// A text without characters that XML cannot hold.
    Escaped escaped(std::string_view startTag, std::string_view utf8, std::string_view endTag);
    void data(const Data& bytes);

    [[nodiscard]] std::size_t depth() const { return m_depth; }
    [[nodiscard]] std::size_t size() const { return m_text.size(); }
    [[nodiscard]] std::string finish() && {
        m_text += kEpilog;
        return std::move(m_text);
    }

  private:
    void indent(std::size_t depth) { m_text.append(depth, '\t'); }

    std::string m_text;
    std::size_t m_depth = 0;
};

} // namespace quorvi::plist
