// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <memory>

#include "export/share_container_view_model.h"
#include "ui/state/state_adapter.h"
#include "ui/text/text_lines_model.h"

namespace hearthmark::ui {

// Hands the texts of one task to ShareContainerView.qml. Owns its view model; made anew for each
// presentation.
class ShareContainerAdapter final : public hearthmark::ui::StateAdapter {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the subview factory")
    Q_PROPERTY(bool loaded READ loaded NOTIFY changed FINAL)
    Q_PROPERTY(hearthmark::ui::TextLinesModel* jsonLines READ jsonLines CONSTANT FINAL)
    Q_PROPERTY(hearthmark::ui::TextLinesModel* csvLines READ csvLines CONSTANT FINAL)

 public:
    // In the order of the tabs.
    enum Tab {
        Json = static_cast<int>(exporting::ShareContainerTab::json),
        Csv = static_cast<int>(exporting::ShareContainerTab::csv)
    };
    Q_ENUM(Tab)

    explicit ShareContainerAdapter(
        std::shared_ptr<exporting::ShareContainerViewModelProtocol> viewModel);

    bool loaded() const { return viewModel_->viewState().value().has_value(); }
    TextLinesModel* jsonLines() { return &jsonLines_; }
    TextLinesModel* csvLines() { return &csvLines_; }

    Q_INVOKABLE void load() { viewModel_->load(); }
    Q_INVOKABLE void copy(Tab tab);

 private:
    void show() override;

    std::shared_ptr<exporting::ShareContainerViewModelProtocol> viewModel_;
    TextLinesModel jsonLines_;
    TextLinesModel csvLines_;
};

}  // namespace hearthmark::ui
