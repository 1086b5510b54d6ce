#include "platform/windows/late_binding.h"

#include "runtime/errors.h"
#include "tests/native/support/raised.h"
#include "tests/windows/automation_object.h"

#include <gtest/gtest.h>

#include <oleauto.h>

#include <optional>

namespace kestrelmoor::tests {
namespace {

using platform::CallMethod;
using platform::ReadProperty;
using Use = AutomationObject::Use;

String TextOf(const VARIANT& argument) {
    EXPECT_EQ(argument.vt, VT_BSTR);
    return String(reinterpret_cast<const char16_t*>(argument.bstrVal), ::SysStringLen(argument.bstrVal));
}

BSTR Text(const wchar_t* text) {
    return ::SysAllocString(text);
}

/// What the system says for a code, without its line end.
String SystemText(DWORD code) {
    wchar_t text[256];
    DWORD length = ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code,
                                    0, text, 256, nullptr);
    while (length != 0 && text[length - 1] <= L' ')
        --length;
    return String(text, text + length);
}

/// For the thread, as a service does it ahead of a failed result.
void LeaveWords(const wchar_t* text) {
    ICreateErrorInfo* words = nullptr;
    IErrorInfo* left = nullptr;
    ASSERT_EQ(::CreateErrorInfo(&words), S_OK);
    std::wstring copy = text;
    words->SetDescription(copy.data());
    words->QueryInterface(IID_IErrorInfo, reinterpret_cast<void**>(&left));
    ::SetErrorInfo(0, left);
    left->Release();
    words->Release();
}

HRESULT CALLBACK FillIn(EXCEPINFO* exception) {
    exception->scode = static_cast<SCODE>(0x800708C5);
    exception->bstrDescription = Text(L"Too short.");
    return S_OK;
}

class LateBinding : public testing::Test {
  protected:
    void Answer(const VARIANT& content) {
        object.on_use = [content](const Use& use) {
            use.answer = content;
            return S_OK;
        };
    }
    Variant AnswerOf(VARTYPE type, LONGLONG bits) {
        VARIANT content{};
        content.llVal = bits;
        content.vt = type;
        Answer(content);
        return ReadProperty(object, L"Value");
    }
    void Fail(HRESULT result, const std::function<void(EXCEPINFO&)>& fill = {}) {
        object.on_use = [=](const Use& use) {
            if (fill)
                fill(use.exception);
            return result;
        };
    }
    RuntimeError Failure() {
        return Raised([&] { ReadProperty(object, L"Value"); }).value();
    }

    AutomationObject object{{L"Value", L"Get", L"ChangePassword"}};
};

TEST_F(LateBinding, AMethodGetsItsTextAndGivesItsAnswer) {
    object.on_use = [](const Use& use) {
        EXPECT_EQ(use.member, L"Get");
        EXPECT_EQ(use.kind, DISPATCH_METHOD);
        EXPECT_EQ(use.arguments.cArgs, 1U);
        EXPECT_EQ(use.arguments.cNamedArgs, 0U);
        EXPECT_EQ(TextOf(use.arguments.rgvarg[0]), u"UserFlags");
        use.answer.vt = VT_I4;
        use.answer.lVal = 0x800201;
        return S_OK;
    };
    EXPECT_EQ(std::get<std::int32_t>(CallMethod(object, L"Get", u"UserFlags")), 0x800201);
}

TEST_F(LateBinding, TwoTextsReachTheMethodWithTheLastOneFirst) {
    const String odd{u'a', u'\0', 0xD800};
    bool called = false;
    object.on_use = [&](const Use& use) {
        called = true;
        EXPECT_EQ(use.member, L"ChangePassword");
        EXPECT_EQ(use.arguments.cArgs, 2U);
        EXPECT_EQ(TextOf(use.arguments.rgvarg[0]), odd);
        EXPECT_EQ(TextOf(use.arguments.rgvarg[1]), u"");
        return S_OK;
    };
    CallMethod(object, L"ChangePassword", u"", odd);
    EXPECT_TRUE(called);
}

TEST_F(LateBinding, APropertyIsReadWithoutArguments) {
    object.on_use = [](const Use& use) {
        EXPECT_EQ(use.kind, DISPATCH_PROPERTYGET);
        EXPECT_EQ(use.arguments.cArgs, 0U);
        use.answer.vt = VT_DATE;
        use.answer.date = 46083.25;
        return S_OK;
    };
    EXPECT_EQ(std::get<DateValue>(ReadProperty(object, L"Value")).date, 46083.25);
}

TEST_F(LateBinding, NothingAndNullStayWhatTheyAre) {
    EXPECT_TRUE(std::holds_alternative<std::monostate>(AnswerOf(VT_EMPTY, 0)));
    EXPECT_TRUE(std::holds_alternative<NullValue>(AnswerOf(VT_NULL, 0)));
}

TEST_F(LateBinding, WholeNumbersOfEveryWidthComeAsOne) {
    EXPECT_EQ(std::get<std::int32_t>(AnswerOf(VT_I1, 0xFF)), -1);
    EXPECT_EQ(std::get<std::int32_t>(AnswerOf(VT_UI1, 0xFF)), 255);
    EXPECT_EQ(std::get<std::int32_t>(AnswerOf(VT_I2, 0x8000)), -32768);
    EXPECT_EQ(std::get<std::int32_t>(AnswerOf(VT_UI2, 0x8000)), 32768);
    EXPECT_EQ(std::get<std::int32_t>(AnswerOf(VT_I4, 0x80000000)), INT32_MIN);
    EXPECT_EQ(std::get<std::int32_t>(AnswerOf(VT_INT, 7)), 7);
}

TEST_F(LateBinding, WiderNumbersComeAsFloatingOnes) {
    EXPECT_EQ(std::get<double>(AnswerOf(VT_UI4, 0xFFFFFFFF)), 4294967295.0);
    EXPECT_EQ(std::get<double>(AnswerOf(VT_I8, -5000000000)), -5000000000.0);
    EXPECT_EQ(std::get<double>(AnswerOf(VT_CY, 15000)), 1.5);
    VARIANT fraction{};
    fraction.vt = VT_R8;
    fraction.dblVal = -0.25;
    Answer(fraction);
    EXPECT_EQ(std::get<double>(ReadProperty(object, L"Value")), -0.25);
}

TEST_F(LateBinding, ATruthComesAsOne) {
    EXPECT_TRUE(std::get<bool>(AnswerOf(VT_BOOL, 0xFFFF)));
    EXPECT_FALSE(std::get<bool>(AnswerOf(VT_BOOL, 0)));
}

TEST_F(LateBinding, ATextKeepsEveryCharacter) {
    const wchar_t characters[] = {L'a', L'\0', 0xD800};
    VARIANT text{};
    text.vt = VT_BSTR;
    text.bstrVal = ::SysAllocStringLen(characters, 3);
    Answer(text);
    EXPECT_EQ(std::get<String>(ReadProperty(object, L"Value")), String(characters, characters + 3));
    EXPECT_EQ(std::get<String>(AnswerOf(VT_BSTR, 0)), u"");
}

TEST_F(LateBinding, AnObjectInTheAnswerIsForeignAndGivenBack) {
    AutomationObject other({});
    VARIANT content{};
    content.vt = VT_DISPATCH;
    content.pdispVal = &other;
    other.AddRef();
    Answer(content);
    EXPECT_TRUE(std::holds_alternative<ForeignValue>(ReadProperty(object, L"Value")));
    EXPECT_EQ(other.references, 1);
    EXPECT_TRUE(std::holds_alternative<ForeignValue>(AnswerOf(VT_ERROR, 5)));
    EXPECT_EQ(object.references, 1);
}

TEST_F(LateBinding, AnExceptionHasItsOwnNumberAndWords) {
    Fail(DISP_E_EXCEPTION, [](EXCEPINFO& exception) {
        exception.scode = static_cast<SCODE>(0x80070056);
        exception.bstrDescription = Text(L"Not this one.");
        exception.bstrSource = Text(L"Directory");
        exception.bstrHelpFile = Text(L"C:\\help.hlp");
    });
    const RuntimeError error = Failure();
    EXPECT_EQ(static_cast<std::uint32_t>(error.number()), 0x80070056U);
    EXPECT_EQ(error.description(), u"Not this one.");
    EXPECT_EQ(error.source(), u"Directory");
}

TEST_F(LateBinding, AnExceptionWithoutWordsHasTheSystemsOnes) {
    Fail(DISP_E_EXCEPTION, [](EXCEPINFO& exception) { exception.scode = static_cast<SCODE>(0x80070056); });
    ASSERT_NE(SystemText(86), u"");
    EXPECT_EQ(Failure().description(), SystemText(86));
}

TEST_F(LateBinding, AnExceptionMayHaveASmallNumber) {
    Fail(DISP_E_EXCEPTION, [](EXCEPINFO& exception) { exception.wCode = 1001; });
    const RuntimeError error = Failure();
    EXPECT_EQ(error.number(), 1001);
    EXPECT_EQ(error.description(), u"Automation error");
}

TEST_F(LateBinding, AnExceptionMayFillItselfInLater) {
    Fail(DISP_E_EXCEPTION, [](EXCEPINFO& exception) { exception.pfnDeferredFillIn = &FillIn; });
    const RuntimeError error = Failure();
    EXPECT_EQ(static_cast<std::uint32_t>(error.number()), 0x800708C5U);
    EXPECT_EQ(error.description(), u"Too short.");
}

TEST_F(LateBinding, AnExceptionWithoutANumberIsAFailureAllTheSame) {
    Fail(DISP_E_EXCEPTION);
    EXPECT_EQ(Failure().number(), DISP_E_EXCEPTION);
}

TEST_F(LateBinding, DeniedAccessIsNumber70) {
    Fail(DISP_E_EXCEPTION, [](EXCEPINFO& exception) { exception.scode = E_ACCESSDENIED; });
    EXPECT_EQ(Failure().number(), 70);
    EXPECT_EQ(Failure().description(), SystemText(5));
    Fail(E_ACCESSDENIED);
    EXPECT_EQ(Failure().number(), 70);
}

TEST_F(LateBinding, AnUnknownMemberIsNumber438) {
    const RuntimeError error = Raised([&] { ReadProperty(object, L"PasswordMinimumLength"); }).value();
    EXPECT_EQ(error.number(), 438);
    EXPECT_EQ(error.description(), u"Object doesn't support this property or method");
}

TEST_F(LateBinding, AFailedResultHasTheWordsLeftForIt) {
    object.on_use = [](const Use&) {
        LeaveWords(L"Closed for today.");
        return HRESULT_FROM_WIN32(ERROR_BUSY);
    };
    EXPECT_EQ(Failure().description(), u"Closed for today.");
    EXPECT_EQ(static_cast<std::uint32_t>(Failure().number()), 0x800700AAU);
}

TEST_F(LateBinding, WordsOfAnEarlierCallAreNotTakenForThoseOfALaterOne) {
    LeaveWords(L"Long ago.");
    Fail(HRESULT_FROM_WIN32(ERROR_BAD_NETPATH));
    EXPECT_EQ(Failure().description(), SystemText(53));
}

} // namespace
} // namespace kestrelmoor::tests
