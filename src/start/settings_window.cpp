#include "start/settings_window.h"

#include "intake/files/intake_page.h"
#include "intake/transfer/transfer_page.h"
#include "settings/editing/editing_page.h"
#include "settings/setup/setup_page.h"

namespace {

template <typename Made, typename Kept, typename... Arguments>
Made& add(std::vector<std::unique_ptr<Kept>>& all, Arguments&&... arguments) {
    auto made = std::make_unique<Made>(std::forward<Arguments>(arguments)...);
    Made& reference = *made;
    all.push_back(std::move(made));
    return reference;
}

FrameContents furnish(const SettingsFrame& frame) {
    FrameContents contents;
    auto& [parts, pages] = contents;
    auto& flow = add<GuidedFlow>(parts);
    auto& chosen = add<ChosenLines>(parts, frame);
    auto& browser = add<BrowserPanel>(parts, frame, flow);
    auto& mapping = add<MappingPanel>(parts, frame, flow, browser);
    auto& codeButtons = add<CodeButtons>(parts, frame);
    auto& preview = add<PreviewPanel>(parts, frame);
    add<SetupPage>(pages, frame, preview);
    add<IntakePage>(pages, frame, flow, browser, mapping, codeButtons, preview, chosen);
    add<EditingPage>(pages, frame, preview);
    add<TransferPage>(pages, frame, flow, browser, mapping, codeButtons, preview, chosen);
    return contents;
}

}  // namespace

std::unique_ptr<frmSz> makeSettingsWindow(Windows& windows) {
    return std::make_unique<frmSz>(windows, furnish);
}
