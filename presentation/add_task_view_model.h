// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "store/data_operations_service_protocol.h"

namespace hearthmark::presentation {

class AddTaskViewModelProtocol {
 public:
    virtual ~AddTaskViewModelProtocol() = default;

    // Makes a task of what was typed, without the white space around it. An empty name is a name.
    virtual void addTask(const std::string& name) = 0;
};

class AddTaskViewModel final : public AddTaskViewModelProtocol {
 public:
    explicit AddTaskViewModel(
        std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService);

    void addTask(const std::string& name) override;

 private:
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService_;
};

// For previews: adds nothing.
class FakeAddTaskViewModel final : public AddTaskViewModelProtocol {
 public:
    void addTask(const std::string& /*name*/) override {}
};

}  // namespace hearthmark::presentation
