#include "commands.h"
#include "text_conversion.h"

#include <stdexcept>

namespace kestrelmoor::driver {

namespace {

HKEY RootArgument(const Arguments& arguments) {
    const std::string& name = arguments.Utf8(0);
    if (name == "HKCU")
        return HKEY_CURRENT_USER;
    if (name == "HKLM")
        return HKEY_LOCAL_MACHINE;
    if (name == "HKCR")
        return HKEY_CLASSES_ROOT;
    throw std::invalid_argument("no such registry root: " + name);
}

/// A key that is closed with the object; `Handle` is null when the key was not there.
class Key {
  public:
    explicit Key(const Arguments& arguments) {
        Check(RegOpenKeyExW(RootArgument(arguments), arguments.Text(1).c_str(), 0, KEY_READ | KEY_WRITE,
                            &mKey));
    }
    ~Key() {
        if (mKey != nullptr)
            RegCloseKey(mKey);
    }
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;

    HKEY Handle() const { return mKey; }

    /// False when what was looked for is absent; throws on any other failure.
    static bool Check(LSTATUS status) {
        if (status == ERROR_FILE_NOT_FOUND || status == ERROR_NO_MORE_ITEMS)
            return false;
        if (status != ERROR_SUCCESS)
            throw std::runtime_error("the registry answers with code " + std::to_string(status));
        return true;
    }

  private:
    HKEY mKey = nullptr;
};

} // namespace

Answer ReadValue(const Arguments& arguments) {
    const Key key(arguments);
    const std::wstring name = arguments.Text(2);
    DWORD type = 0, size = 0;
    if (key.Handle() == nullptr ||
        !Key::Check(RegQueryValueExW(key.Handle(), name.c_str(), nullptr, &type, nullptr, &size)))
        return {};
    std::vector<unsigned char> bytes(size);
    Key::Check(RegQueryValueExW(key.Handle(), name.c_str(), nullptr, &type, bytes.data(), &size));
    return {Record().Add(type).Add(ToHex(bytes.data(), size))};
}

Answer WriteValue(const Arguments& arguments) {
    const auto bytes = FromHex(arguments.Utf8(4));
    HKEY key = nullptr;
    Key::Check(RegCreateKeyExW(RootArgument(arguments), arguments.Text(1).c_str(), 0, nullptr, 0,
                               KEY_READ | KEY_WRITE, nullptr, &key, nullptr));
    const LSTATUS status = RegSetValueExW(key, arguments.Text(2).c_str(), 0, arguments.Number(3),
                                          bytes.data(), static_cast<DWORD>(bytes.size()));
    RegCloseKey(key);
    Key::Check(status);
    return {};
}

Answer DeleteValue(const Arguments& arguments) {
    const Key key(arguments);
    if (key.Handle() != nullptr)
        Key::Check(RegDeleteValueW(key.Handle(), arguments.Text(2).c_str()));
    return {};
}

Answer DeleteKey(const Arguments& arguments) {
    Key::Check(RegDeleteTreeW(RootArgument(arguments), arguments.Text(1).c_str()));
    return {};
}

Answer ListKey(const Arguments& arguments) {
    const Key key(arguments);
    Answer answer;
    wchar_t name[16384];
    DWORD size = 16384;
    for (DWORD i = 0;
         key.Handle() != nullptr &&
         Key::Check(RegEnumKeyExW(key.Handle(), i, name, &size, nullptr, nullptr, nullptr, nullptr));
         ++i, size = 16384)
        answer.push_back(Record().Add(std::string("key")).Add(std::wstring(name, size)));
    size = 16384;
    for (DWORD i = 0;
         key.Handle() != nullptr &&
         Key::Check(RegEnumValueW(key.Handle(), i, name, &size, nullptr, nullptr, nullptr, nullptr));
         ++i, size = 16384)
        answer.push_back(Record().Add(std::string("value")).Add(std::wstring(name, size)));
    return answer;
}

} // namespace kestrelmoor::driver
