#include "forms/about/show_about.h"

#include "forms/about/frmAbout.h"
#include "runtime/forms/application.h"

namespace kestrelmoor {

void (*ShowAbout)() = [] {
    const auto about = Application::Current().Make<frmAbout>();
    about->Show(true);
};

} // namespace kestrelmoor
