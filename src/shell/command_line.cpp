#include "shell/command_line.h"

#include "platform/message_box.h"
#include "platform/process.h"
#include "runtime/conversions.h"
#include "runtime/errors.h"
#include "shell/messages.h"
#include "shell/program_state.h"

namespace kestrelmoor {

namespace {

/// Reads one token after the other and keeps what the next one is expected to be.
class CommandLineReader {
  public:
    explicit CommandLineReader(std::int16_t& nLang) : mLang(nLang) {}

    /// False: the token is bad.
    bool Read(int index, const String& sToken) {
        if (sToken.empty())
            return true;
        if (ReadSwitch(index, LowerAscii(sToken)))
            return true;
        if (index == mFileAt) {
            gLogFileName = StripQuotes(sToken);
            return true;
        }
        if (index == mLanguageAt)
            return ReadLanguage(sToken);
        return false;
    }

    /// `/l` without a number: the automatic language, also over a stored choice.
    void End() {
        if (mLanguagePending)
            mLang = 0;
    }

  private:
    bool ReadSwitch(int index, const String& sLower) {
        if (sLower.size() != 2 || (sLower[0] != u'/' && sLower[0] != u'-'))
            return false;
        switch (sLower[1]) {
        case u'?':
            gShowUsage = true;
            return true;
        case u'f':
            gForceWindow = true;
            return true;
        case u'd':
            gLogging = true;
            mFileAt = index + 1;
            return true;
        case u'l':
            mLanguageAt = index + 1;
            mLanguagePending = true;
            return true;
        default:
            return false;
        }
    }

    bool ReadLanguage(const String& sToken) {
        mLanguagePending = false;
        try {
            mLang = ToInteger16(sToken);
            return true;
        } catch (const RuntimeError&) {
            return false;
        }
    }

    std::int16_t& mLang;
    int mFileAt = -1;
    int mLanguageAt = -1;
    bool mLanguagePending = false;
};

} // namespace

StringList SplitCommandLine(const String& sLine) {
    StringList tokens;
    if (sLine.empty())
        return tokens;
    std::size_t start = 0;
    std::size_t scan = 0;
    for (;;) {
        const std::size_t blank = sLine.find(u' ', scan);
        if (blank == String::npos)
            break;
        const std::size_t quote = sLine.find(u'"', scan);
        if (quote < blank) {
            const std::size_t closing = sLine.find(u'"', quote + 1);
            if (closing == String::npos)
                break;
            scan = closing + 1;
            continue;
        }
        tokens.push_back(sLine.substr(start, blank - start));
        start = blank + 1;
        if (start == sLine.size())
            return tokens;
        scan = sLine.find_first_not_of(u' ', start);
        if (scan == String::npos)
            break;
    }
    tokens.push_back(sLine.substr(start));
    return tokens;
}

String StripQuotes(const String& sToken) {
    if (!sToken.starts_with(u'"'))
        return sToken;
    const std::size_t closing = sToken.find(u'"', 1);
    return sToken.substr(1, closing == String::npos ? closing : closing - 1);
}

bool ParseCommandLine(std::int16_t& nLang) {
    const StringList tokens = SplitCommandLine(platform::CommandLineArguments());
    CommandLineReader reader(nLang);
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const String token(TrimBlanks(tokens[i]));
        if (!reader.Read(static_cast<int>(i), token)) {
            platform::MessageBoxW(LoadMessage(10, {token}), platform::kBoxExclamation,
                                  platform::kProgramTitle);
            return true;
        }
    }
    reader.End();
    return false;
}

} // namespace kestrelmoor
