#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace mavrin2::tests {

// Sets a variable of the environment, or takes it away, until the end of the scope.
class EnvironmentVariable {
public:
    EnvironmentVariable(std::string name, const std::optional<std::string>& value)
        : name_(std::move(name)) {
        if (const char* const old = ::getenv(name_.c_str())) old_ = old;
        Set(value);
    }
    ~EnvironmentVariable() { Set(old_); }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

private:
    void Set(const std::optional<std::string>& value) {
        if (value) {
            ::setenv(name_.c_str(), value->c_str(), 1);
        } else {
            ::unsetenv(name_.c_str());
        }
    }

    std::string name_;
    std::optional<std::string> old_;
};

}  // namespace mavrin2::tests
