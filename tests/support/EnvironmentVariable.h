// Sets or unsets an environment variable during a test.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

namespace quorvi::test {

class EnvironmentVariable {
  public:
    EnvironmentVariable(std::string name, const std::optional<std::string>& value) : m_name(std::move(name)) {
        if (const char* old = std::getenv(m_name.c_str()))
            m_old = old;
        set(value);
    }
    ~EnvironmentVariable() { set(m_old); }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

  private:
    void set(const std::optional<std::string>& value) const {
        if (value)
            ::setenv(m_name.c_str(), value->c_str(), 1);
        else
            ::unsetenv(m_name.c_str());
    }

    std::string m_name;
    std::optional<std::string> m_old;
};

} // namespace quorvi::test
