#include "client/commands/Commands.h"

namespace pimcall {

std::span<const Command* const> allCommands() {
    static constexpr const Command* kCommands[] = {&kCall,   &kFind,       &kShow,    &kActive, &kActions,
                                                   &kCreate, &kShowFolder, &kFolders, &kForms,  &kConfig,
                                                   &kExport, &kDoctor,     &kExplain, &kBundle};
    return kCommands;
}

std::span<const Option> commonOptions() {
    static constexpr Option kOptions[] = {
        {L"--json", nullptr}, {L"--verbose", nullptr}, {L"--help", nullptr}};
    return kOptions;
}

}  // namespace pimcall
