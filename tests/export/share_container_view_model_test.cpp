// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "export/csv_task_share_serializer.h"
#include "export/json_share_serializer.h"
#include "export/share_container_vm_factory.h"
#include "support/test_store.h"

namespace hearthmark::exporting {

struct FakeClipboard final : Clipboard {
    void setString(const std::string& copied) override { text = copied; }
    std::string text;
};

TEST(ShareContainerViewModel, ShowsAndCopiesATaskAsItWasWhenLoaded) {
    tests::TestStore store;
    store.addTask("another", tests::at(0));
    store::Task& task = store.addTask("a");
    const auto clipboard = std::make_shared<FakeClipboard>();
    const auto csv = std::make_shared<CSVTaskShareSerializer>();
    const auto json = std::make_shared<JSONShareSerializer>();
    const ShareContainerVMFactory factory({.csvSerializer = csv, .jsonSerializer = json},
                                          store.liveData, clipboard, *task.id());
    const auto model = factory.makeViewModel();
    model->load();
    const ShareContainerViewState loaded{json->serialize(task), csv->serialize(task)};
    store.addInterval(task, store::IntervalState::finished());
    model->copy(ShareContainerTab::csv);
    EXPECT_EQ(clipboard->text, loaded.csvText);
    model->copy(ShareContainerTab::json);
    EXPECT_EQ(clipboard->text, loaded.jsonText);
    model->load();
    EXPECT_EQ(model->viewState().value()->csvText, csv->serialize(task));
    store.service->deleteTask(*task.id());
    const auto late = factory.makeViewModel();
    late->load();
    EXPECT_FALSE(late->viewState().value()) << "nothing is made of a task that is gone";
    late->copy(ShareContainerTab::csv);
    EXPECT_EQ(clipboard->text, loaded.jsonText);
}

}  // namespace hearthmark::exporting
