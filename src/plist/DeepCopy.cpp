#include "plist/DeepCopy.h"

#include "plist/Limits.h"

namespace quorvi::plist {

namespace {

/// Each function returns Value() or nil if the value cannot be copied.
class Copier {
  public:
    // NOLINTNEXTLINE(misc-no-recursion): the depth is bounded
    Value copy(const Value& value) {
        if (++m_nodes > kMaxNodes)
            return {};
        if (const auto* dictionary = std::get_if<Dictionary>(&value.variant()))
            return within([&] { return copy(*dictionary); });
        if (const auto* array = std::get_if<Array>(&value.variant()))
            return within([&] { return copy(*array); });
        return value;
    }

  private:
    template <typename Copy>
    Value within(Copy copyContainer) {
        if (m_depth == kMaxDepth)
            return {};
        ++m_depth;
        Value result = copyContainer();
        --m_depth;
        return result;
    }

    Dictionary copy(const Dictionary& source) {
        auto result = Dictionary::create();
        result.reserve(source.size());
        for (const auto& entry : source.entries()) {
            Value value = copy(entry.value);
            if (value.isNothing())
                return {};
            result.append(entry.key, std::move(value));
        }
        return result;
    }

    Array copy(const Array& source) {
        auto result = Array::create();
        result.reserve(source.size());
        for (const auto& item : source.items()) {
            Value value = copy(item);
            if (value.isNothing())
                return {};
            result.append(std::move(value));
        }
        return result;
    }

    std::size_t m_depth = 0;
    std::uint64_t m_nodes = 0;
};

} // namespace

Value deepCopy(const Value& value) {
    return Copier().copy(value);
}

Dictionary mutableDeepCopy(const Dictionary& dictionary) {
    return deepCopy(dictionary).dictionary();
}

} // namespace quorvi::plist
