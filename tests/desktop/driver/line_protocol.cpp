#include "line_protocol.h"

#include "text_conversion.h"

#include <stdexcept>

namespace kestrelmoor::driver {

namespace {

std::string Escape(const std::string& field) {
    std::string escaped;
    for (const char c : field) {
        switch (c) {
        case '\t':
            escaped += "\\t";
            break;
        case '\n':
            escaped += "\\n";
            break;
        case '\r':
            escaped += "\\r";
            break;
        case '\\':
            escaped += "\\\\";
            break;
        default:
            escaped += c;
        }
    }
    return escaped;
}

char Unescaped(char c) {
    switch (c) {
    case 't':
        return '\t';
    case 'n':
        return '\n';
    case 'r':
        return '\r';
    default:
        return c;
    }
}

} // namespace

const std::string& Arguments::Utf8(std::size_t index) const {
    if (index >= mFields.size())
        throw std::invalid_argument("argument " + std::to_string(index + 1) + " is missing");
    return mFields[index];
}

std::wstring Arguments::Text(std::size_t index) const {
    return FromUtf8(Utf8(index));
}

unsigned long Arguments::Number(std::size_t index) const {
    const std::string& digits = Utf8(index);
    std::size_t used = 0;
    const long long number = std::stoll(digits, &used, 0);
    if (used != digits.size())
        throw std::invalid_argument("not a number: " + digits);
    return static_cast<unsigned long>(number);
}

Record& Record::Add(const std::string& utf8) {
    mLine += mLine.empty() ? "=" : "\t";
    mLine += Escape(utf8);
    return *this;
}

Record& Record::Add(const std::wstring& text) {
    return Add(ToUtf8(text));
}

std::vector<std::string> SplitRequest(const std::string& line) {
    std::vector<std::string> fields(1);
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '\t')
            fields.emplace_back();
        else if (line[i] == '\\' && i + 1 < line.size())
            fields.back() += Unescaped(line[++i]);
        else
            fields.back() += line[i];
    }
    return fields;
}

} // namespace kestrelmoor::driver
