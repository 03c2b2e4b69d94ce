// SPDX-License-Identifier: MIT
#include "export/share_container_view_model.h"

#include <utility>

namespace hearthmark::exporting {

ShareContainerViewModel::ShareContainerViewModel(
    Serializers serializers,
    std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory,
    std::shared_ptr<services::Clipboard> clipboard, const base::Uuid& taskId)
    : serializers_(std::move(serializers)),
      liveDataFactory_(std::move(liveDataFactory)),
      clipboard_(std::move(clipboard)),
      taskId_(taskId) {}

void ShareContainerViewModel::copy(ShareContainerTab tab) {
    if (const auto& state = viewState_.value()) {
        clipboard_->setString(tab == ShareContainerTab::json ? state->jsonText : state->csvText);
    }
}

void ShareContainerViewModel::load() {
    const auto provider =
        liveDataFactory_->makeProvider<store::Task>({.key = "creationDate", .ascending = true});
    provider->startObserving();
    const store::Tasks tasks = provider->currentItems()->value();
    const store::Task* task = store::taskWithId(tasks, taskId_);
    if (task == nullptr) {
        return;
    }
    std::string jsonText = serializers_.jsonSerializer->serialize(*task);
    std::string csvText = serializers_.csvSerializer->serialize(*task);
    viewState_.setValue(
        ShareContainerViewState{.jsonText = std::move(jsonText), .csvText = std::move(csvText)});
}

}  // namespace hearthmark::exporting
