#include "app/screens.h"

#include "capture/form2.h"
#include "capture/form3.h"
#include "capture/form4.h"
#include "core/form1.h"
#include "final/form6.h"
#include "sheet/form5.h"

namespace velmora {

std::unique_ptr<Screen> MakeScreen(ScreenId id, const Environment& environment) {
    switch (id) {
        case ScreenId::Form1:
            return std::make_unique<Form1>(environment);
        case ScreenId::Form2:
            return std::make_unique<Form2>(environment);
        case ScreenId::Form3:
            return std::make_unique<Form3>(environment);
        case ScreenId::Form4:
            return std::make_unique<Form4>(environment);
        case ScreenId::Form5:
            return std::make_unique<Form5>(environment);
        case ScreenId::Form6:
            return std::make_unique<Form6>(environment);
    }
    return nullptr;
}

PageOwner OwnerOf(const Screen& screen, const EvaluacionRecord& record) {
    constexpr int kCompany = 1;
    constexpr int kCode = 19;
    if (const auto* const company = dynamic_cast<const Form2*>(&screen)) {
        return {company->Text1(kCompany).Text, company->Text1(kCode).Text};
    }
    return {record.DatosEmpresa(kCompany), record.DatosEmpresa(kCode)};
}

}  // namespace velmora
