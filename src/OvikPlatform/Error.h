#pragma once
// The root of every error the engine throws: what() is the finished, localized message.
#include <exception>
#include <string>

namespace ovik {

class Error : public std::exception {
public:
    explicit Error(std::string message) : message_(std::move(message)) {}
    const char* what() const noexcept override { return message_.c_str(); }
    const std::string& message() const noexcept { return message_; }

private:
    std::string message_;
};

} // namespace ovik
