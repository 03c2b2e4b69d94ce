// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QColor>
#include <QObject>
#include <QQmlParserStatus>
#include <QWindow>

namespace hearthmark::ui {

// Of a window whose title bar the toolkit has to draw itself, as on GNOME for programs that speak
// Wayland. It draws it in the colours that the application's palette has when the bar is made.
class TitleBar : public QObject, public QQmlParserStatus {
    Q_OBJECT
    Q_INTERFACES(QQmlParserStatus)
    QML_ELEMENT
    Q_PROPERTY(QWindow* window MEMBER window_ REQUIRED FINAL)
    Q_PROPERTY(QColor color MEMBER color_ NOTIFY changed REQUIRED FINAL)
    Q_PROPERTY(QColor textColor MEMBER textColor_ NOTIFY changed REQUIRED FINAL)

 public:
    using QObject::QObject;

    void classBegin() override {}
    void componentComplete() override;

 signals:
    void changed();

 private:
    void draw() const;

    QWindow* window_ = nullptr;
    QColor color_;
    QColor textColor_;
};

}  // namespace hearthmark::ui
