#pragma once

#include <concepts>
#include <string>
#include <vector>

namespace kestrelmoor::driver {

/// How the tests talk to the driver, over its standard input and output, in UTF-8.
///
/// A request is one line: a command and its arguments, separated by tabs. A tab, line feed, carriage return
/// or backslash within an argument is written \t, \n, \r, \\. The answer is any number of records, each a
/// line that starts with '=' and holds fields in the same manner, and a closing line: "." when the command
/// was carried out, "!" and a sentence when not.

/// One request's arguments, without the command. Reading one that is missing or no number throws
/// std::invalid_argument.
class Arguments {
  public:
    explicit Arguments(std::vector<std::string> fields) : mFields(std::move(fields)) {}

    std::size_t Count() const { return mFields.size(); }
    const std::string& Utf8(std::size_t index) const;
    std::wstring Text(std::size_t index) const;
    /// Decimal, or hexadecimal with 0x. Negative numbers are taken modulo 2^32.
    unsigned long Number(std::size_t index) const;

  private:
    std::vector<std::string> mFields;
};

/// One record of an answer.
class Record {
  public:
    Record& Add(const std::wstring& text);
    Record& Add(const std::string& utf8);
    template <std::integral Number>
    Record& Add(Number number) {
        return Add(std::to_string(number));
    }

    const std::string& Line() const { return mLine; }

  private:
    std::string mLine;
};

using Answer = std::vector<Record>;

std::vector<std::string> SplitRequest(const std::string& line);

} // namespace kestrelmoor::driver
