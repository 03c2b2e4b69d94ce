// SPDX-License-Identifier: MIT
#include "export/share_container_vm_factory.h"

#include <utility>

namespace hearthmark::exporting {

ShareContainerVMFactory::ShareContainerVMFactory(
    ShareContainerViewModel::Serializers serializers,
    std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory,
    std::shared_ptr<services::Clipboard> clipboard, const base::Uuid& taskId)
    : serializers_(std::move(serializers)),
      liveDataFactory_(std::move(liveDataFactory)),
      clipboard_(std::move(clipboard)),
      taskId_(taskId) {}

std::shared_ptr<ShareContainerViewModelProtocol> ShareContainerVMFactory::makeViewModel() const {
    return std::make_shared<ShareContainerViewModel>(serializers_, liveDataFactory_, clipboard_,
                                                     taskId_);
}

}  // namespace hearthmark::exporting
