#include "platform/practice/world/json_text.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace kestrelmoor::practice {

namespace {

/// Counts the lines while a parser reads. A line counts as reached with its first character that is no white
/// space, since the parser looks one character beyond a number.
class CountingIterator {
  public:
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = const char&;

    CountingIterator(const char* place, int* line) : mPlace(place), mLine(line) {}

    reference operator*() const { return *mPlace; }
    CountingIterator& operator++() {
        if (*mPlace == '\n')
            ++mBreaks;
        else if (*mPlace != ' ' && *mPlace != '\t' && *mPlace != '\r')
            *mLine = mBreaks + 1;
        ++mPlace;
        return *this;
    }
    bool operator==(const CountingIterator& other) const { return mPlace == other.mPlace; }

  private:
    const char* mPlace;
    int* mLine;
    int mBreaks = 0;
};

/// Follows a parser and notes the line at which one place is reached.
class PlaceFinder : public nlohmann::json_sax<Json> {
  public:
    PlaceFinder(std::string wanted, const int& line) : mWanted(std::move(wanted)), mLine(line) {}

    int Found() const { return mFound; }
    std::size_t GaveUpAt() const { return mGaveUpAt; }

    bool null() override { return Value(); }
    bool boolean(bool) override { return Value(); }
    bool number_integer(number_integer_t) override { return Value(); }
    bool number_unsigned(number_unsigned_t) override { return Value(); }
    bool number_float(number_float_t, const string_t&) override { return Value(); }
    bool string(string_t&) override { return Value(); }
    bool binary(binary_t&) override { return Value(); }
    bool start_object(std::size_t) override { return Open(-1); }
    bool start_array(std::size_t) override { return Open(0); }
    bool end_object() override { return Close(); }
    bool end_array() override { return Close(); }
    bool key(string_t& name) override {
        mLevels.back().name = name;
        return true;
    }
    bool parse_error(std::size_t byte, const std::string&, const nlohmann::detail::exception&) override {
        mGaveUpAt = byte;
        return false;
    }

  private:
    struct Level {
        int index; ///< -1: an object
        std::string name;
    };

    std::string Here() const {
        std::string pointer;
        for (const Level& level : mLevels)
            pointer += "/" + (level.index < 0 ? level.name : std::to_string(level.index));
        return pointer;
    }
    void Look() {
        if (mFound == 0 && Here() == mWanted)
            mFound = mLine;
    }
    void Leave() {
        if (!mLevels.empty() && mLevels.back().index >= 0)
            ++mLevels.back().index;
    }
    bool Value() {
        Look();
        Leave();
        return mFound == 0;
    }
    bool Open(int index) {
        Look();
        mLevels.push_back({index, {}});
        return mFound == 0;
    }
    bool Close() {
        mLevels.pop_back();
        Leave();
        return true;
    }

    std::string mWanted;
    const int& mLine;
    int mFound = 0;
    std::size_t mGaveUpAt = 0;
    std::vector<Level> mLevels;
};

/// Where no pointer ever points.
constexpr const char* kNowhere = "-";

bool HasUnpairedSurrogate(StringView text) {
    return FromUtf8(ToUtf8(text)) != text;
}

} // namespace

Json JsonOfText(StringView text) {
    if (!HasUnpairedSurrogate(text))
        return ToUtf8(text);
    Json units = Json::array();
    for (const char16_t unit : text)
        units.push_back(static_cast<unsigned>(unit));
    return units;
}

int LineOfPointer(std::string_view text, const std::string& pointer) {
    int line = 1;
    PlaceFinder finder(pointer, line);
    Json::sax_parse(CountingIterator(text.data(), &line), CountingIterator(text.data() + text.size(), &line),
                    &finder);
    return finder.Found();
}

int LineOfFailure(std::string_view text) {
    int line = 1;
    PlaceFinder finder(kNowhere, line);
    Json::sax_parse(text, &finder);
    return LineOfByte(text, finder.GaveUpAt() - 1);
}

int LineOfByte(std::string_view text, std::size_t byte) {
    const std::string_view ahead = text.substr(0, byte);
    return static_cast<int>(std::count(ahead.begin(), ahead.end(), '\n')) + 1;
}

} // namespace kestrelmoor::practice
