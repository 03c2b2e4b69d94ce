// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "base/uuid.h"
#include "export/task_share_serializer.h"
#include "livedata/published.h"
#include "services/ports/clipboard.h"
#include "store/live_data.h"

namespace hearthmark::exporting {

// What the share sheet shows: one task in two forms.
struct ShareContainerViewState {
    std::string jsonText;
    std::string csvText;

    bool operator==(const ShareContainerViewState&) const = default;
};

// The tabs of the share sheet, from the first to the last.
enum class ShareContainerTab { json, csv };

class ShareContainerViewModelProtocol {
 public:
    virtual ~ShareContainerViewModelProtocol() = default;

    // Absent until the texts have been made.
    virtual livedata::Published<std::optional<ShareContainerViewState>>& viewState() = 0;

    // Puts the text of a tab on the clipboard; without texts, does nothing.
    virtual void copy(ShareContainerTab tab) = 0;

    // Makes the texts from what the store holds now; they do not follow what changes later. Called
    // when the sheet is first shown. Of a task that is gone nothing is made.
    virtual void load() = 0;
};

// Lives as long as the share sheet. Main thread only.
class ShareContainerViewModel final : public ShareContainerViewModelProtocol {
 public:
    struct Serializers {
        std::shared_ptr<const TaskShareSerializerProtocol> csvSerializer;
        std::shared_ptr<const TaskShareSerializerProtocol> jsonSerializer;
    };

    ShareContainerViewModel(
        Serializers serializers,
        std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory,
        std::shared_ptr<services::Clipboard> clipboard, const base::Uuid& taskId);

    livedata::Published<std::optional<ShareContainerViewState>>& viewState() override {
        return viewState_;
    }
    void copy(ShareContainerTab tab) override;
    void load() override;

 private:
    livedata::Published<std::optional<ShareContainerViewState>> viewState_;
    Serializers serializers_;
    std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory_;
    std::shared_ptr<services::Clipboard> clipboard_;
    base::Uuid taskId_;
};

// For previews: a small document that nothing changes and nobody copies.
class FakeShareContainerViewModel final : public ShareContainerViewModelProtocol {
 public:
    livedata::Published<std::optional<ShareContainerViewState>>& viewState() override {
        return viewState_;
    }
    void copy(ShareContainerTab /*tab*/) override {}
    void load() override {}

 private:
    livedata::Published<std::optional<ShareContainerViewState>> viewState_{ShareContainerViewState{
        .jsonText = "{\n  \"name\" : \"Write report\"\n}", .csvText = "name\n\"Write report\""}};
};

}  // namespace hearthmark::exporting
