#include "forms/settings/show_settings.h"

#include "forms/settings/frmSettings.h"
#include "runtime/forms/application.h"

namespace kestrelmoor {

void (*ShowSettings)(Form& owner) = [](Form& owner) {
    const auto settings = Application::Current().Make<frmSettings>();
    settings->Show(true, &owner);
};

} // namespace kestrelmoor
