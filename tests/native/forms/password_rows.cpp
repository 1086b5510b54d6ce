#include "tests/native/forms/password_rows.h"

#include <cstdio>

namespace kestrelmoor::tests {

void PasswordRows::OpenRows() {
    Open();
    ASSERT_TRUE(user.ClickOn(Same()));
    ASSERT_EQ(Same().Value(), 0);
}

std::string PasswordRows::Masked(const std::string& name, std::size_t length) {
    std::string row = name + "\t";
    for (std::size_t i = 0; i < length; ++i)
        row += ToUtf8(gPasswordChar);
    return row;
}

void PasswordRows::Edit(int row) {
    ASSERT_TRUE(user.ChooseRow(List(), row));
    ASSERT_TRUE(EditIsOpen()) << row;
}

void PasswordRows::TypeOld(int row, StringView password) {
    Edit(row);
    ASSERT_TRUE(user.Type(password));
}

void PasswordRows::Leave() {
    ASSERT_TRUE(user.ClickOn(At(u"txtNewPass")));
}

void PasswordRows::Visit(void (*show)(Form& owner)) {
    ShowSettings = show;
    ASSERT_TRUE(user.ClickOn(At(u"cmdSettings")));
}

StringList PasswordRows::ManyServers(int count) {
    StringList servers;
    for (int i = 0; i < count; ++i) {
        char name[16];
        std::snprintf(name, sizeof name, "\\\\S%05d", i);
        servers.push_back(FromUtf8(name));
    }
    return servers;
}

} // namespace kestrelmoor::tests
