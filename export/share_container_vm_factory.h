// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "export/share_container_view_model.h"
#include "presentation/view_model_factories.h"

namespace hearthmark::exporting {

using ShareContainerVMFactoryProtocol =
    presentation::ViewModelFactory<ShareContainerViewModelProtocol>;

class ShareContainerVMFactory final : public ShareContainerVMFactoryProtocol {
 public:
    ShareContainerVMFactory(
        ShareContainerViewModel::Serializers serializers,
        std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory,
        std::shared_ptr<services::Clipboard> clipboard, const base::Uuid& taskId);

    std::shared_ptr<ShareContainerViewModelProtocol> makeViewModel() const override;

 private:
    ShareContainerViewModel::Serializers serializers_;
    std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory_;
    std::shared_ptr<services::Clipboard> clipboard_;
    base::Uuid taskId_;
};

// For previews.
class FakeShareContainerVMFactory final : public ShareContainerVMFactoryProtocol {
 public:
    std::shared_ptr<ShareContainerViewModelProtocol> makeViewModel() const override {
        return std::make_shared<FakeShareContainerViewModel>();
    }
};

}  // namespace hearthmark::exporting
