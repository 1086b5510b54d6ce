#include "platform/directory_service.h"

#include "runtime/errors.h"
#include "tests/native/support/raised.h"
#include "tests/windows/automation_object.h"

#include <gtest/gtest.h>

#include <objbase.h>

namespace kestrelmoor::tests {
namespace {

using platform::BindObject;
using platform::OwnedDirectoryObject;

constexpr CLSID kProvider = {0x6d2c5ae1, 0x8f0b, 0x4c37, {0x9a, 0x41, 0x2e, 0x75, 0xb0, 0x1d, 0xc8, 0x63}};
constexpr wchar_t kProviderText[] = L"{6D2C5AE1-8F0B-4C37-9A41-2E75B01DC863}";
constexpr wchar_t kScheme[] = L"KestrelmoorTest";

/// A provider's class object: paths that begin with its name are its to parse.
class Provider final : public IParseDisplayName {
  public:
    std::function<HRESULT(const std::wstring&, IMoniker**)> on_path;
    LONG references = 1;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** place) override {
        if (wanted != IID_IUnknown && wanted != IID_IParseDisplayName)
            return E_NOINTERFACE;
        AddRef();
        *place = this;
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references); }
    ULONG STDMETHODCALLTYPE Release() override { return static_cast<ULONG>(--references); }
    HRESULT STDMETHODCALLTYPE ParseDisplayName(IBindCtx*, LPOLESTR name, ULONG* eaten,
                                               IMoniker** moniker) override {
        *eaten = static_cast<ULONG>(::lstrlenW(name));
        return on_path(name, moniker);
    }
};

class DirectoryService : public testing::Test {
  protected:
    void SetUp() override {
        ::CoInitialize(nullptr);
        const std::wstring key = std::wstring(kScheme) + L"\\CLSID";
        ASSERT_EQ(::RegSetValueW(HKEY_CLASSES_ROOT, key.c_str(), REG_SZ, kProviderText, 0), 0);
        ASSERT_EQ(::CoRegisterClassObject(kProvider, &provider, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                                          &mRegistration),
                  S_OK);
        provider.on_path = [this](const std::wstring& path, IMoniker** moniker) {
            seen = path;
            return ::CreatePointerMoniker(&user, moniker);
        };
    }
    void TearDown() override {
        ::CoRevokeClassObject(mRegistration);
        const std::wstring key = std::wstring(kScheme) + L"\\CLSID";
        ::RegDeleteKeyW(HKEY_CLASSES_ROOT, key.c_str());
        ::RegDeleteKeyW(HKEY_CLASSES_ROOT, kScheme);
        EXPECT_EQ(user.references, 1);
        EXPECT_EQ(provider.references, 1);
        ::CoUninitialize();
    }
    RuntimeError FailureOfBind(HRESULT result) {
        provider.on_path = [result](const std::wstring&, IMoniker**) { return result; };
        return Raised([] { BindObject(u"KestrelmoorTest://ARCHIVE/user,user"); }).value();
    }

    Provider provider;
    AutomationObject user{{L"Get", L"PasswordMinimumLength", L"ChangePassword"}};
    std::wstring seen;

  private:
    DWORD mRegistration = 0;
};

TEST_F(DirectoryService, APathReachesTheProviderOfItsNameWhole) {
    const OwnedDirectoryObject object = BindObject(u"KestrelmoorTest://ARCHIVE/user,user");
    EXPECT_TRUE(object);
    EXPECT_EQ(seen, L"KestrelmoorTest://ARCHIVE/user,user");
    EXPECT_EQ(user.references, 2);
}

TEST_F(DirectoryService, TheObjectsMembersAreUsedByTheirNames) {
    const OwnedDirectoryObject object = BindObject(u"KestrelmoorTest://ARCHIVE/user,user");
    std::vector<std::wstring> uses;
    user.on_use = [&](const AutomationObject::Use& use) {
        uses.push_back(use.member);
        use.answer.vt = VT_I4;
        use.answer.lVal = 6;
        return S_OK;
    };
    EXPECT_EQ(std::get<std::int32_t>(platform::GetAttribute(object, u"UserFlags")), 6);
    EXPECT_EQ(std::get<std::int32_t>(platform::GetProperty(object, u"PasswordMinimumLength")), 6);
    platform::ChangePassword(object, u"old", u"new");
    EXPECT_EQ(uses, (std::vector<std::wstring>{L"Get", L"PasswordMinimumLength", L"ChangePassword"}));
}

TEST_F(DirectoryService, ARefusedBindHasTheProvidersNumber) {
    EXPECT_EQ(static_cast<std::uint32_t>(FailureOfBind(HRESULT_FROM_WIN32(1326)).number()), 0x8007052EU);
    EXPECT_EQ(static_cast<std::uint32_t>(FailureOfBind(HRESULT_FROM_WIN32(2242)).number()), 0x800708C2U);
    EXPECT_EQ(FailureOfBind(E_ACCESSDENIED).number(), 70);
}

TEST_F(DirectoryService, ARefusedBindHasWords) {
    const String words = FailureOfBind(HRESULT_FROM_WIN32(1331)).description();
    EXPECT_NE(words, u"");
    EXPECT_NE(words, u"Automation error");
    EXPECT_GT(words.back(), u' ');
}

TEST_F(DirectoryService, APathOfNobodysIsAFailure) {
    const RuntimeError error = Raised([] { BindObject(u"NoSuchProvider://ARCHIVE/user,user"); }).value();
    EXPECT_LT(error.number(), 0);
    EXPECT_NE(error.description(), u"");
}

TEST_F(DirectoryService, AnObjectThatIsNotAutomatedIsAFailure) {
    provider.on_path = [this](const std::wstring&, IMoniker** moniker) {
        return ::CreatePointerMoniker(&provider, moniker);
    };
    EXPECT_EQ(RaisedNumber([] { BindObject(u"KestrelmoorTest://ARCHIVE/user,user"); }), E_NOINTERFACE);
}

} // namespace
} // namespace kestrelmoor::tests
