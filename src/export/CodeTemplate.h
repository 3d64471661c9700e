// The three texts that source code is made from, their built-in defaults and their file.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace korvane {

/// A code template (UTF-8, lines end with CR LF): the head is written once, the body once for every
/// visible triangle, the foot once.
struct CodeTemplate {
    std::string head;
    std::string body;
    std::string foot;

    friend bool operator==(const CodeTemplate&, const CodeTemplate&) = default;
};

/// Default template A: Visual Basic.
CodeTemplate DefaultVBCode();

/// Default template B: C++.
CodeTemplate DefaultCppCode();

/// The template as the bytes of a template file (.kvcode).
std::vector<std::uint8_t> EncodeTemplate(const CodeTemplate& code);

/// The template of a file; nothing when the bytes are no valid template file.
std::optional<CodeTemplate> DecodeTemplate(std::span<const std::uint8_t> bytes);

}  // namespace korvane
