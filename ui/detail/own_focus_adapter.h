// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QObject>
#include <QString>
#include <QStringList>
#include <functional>
#include <utility>
#include <vector>

#include "presentation/focus_length.h"

namespace hearthmark::ui {

// Hands the field for a focus of one's own length to StartFocus.qml: what was typed means, and
// which lengths are offered. What starts a focus does nothing where none may start.
class OwnFocusAdapter final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the task detail adapter")
    // One of them where something is typed.
    Q_PROPERTY(QString understood READ understood NOTIFY typedChanged FINAL)
    Q_PROPERTY(QString fault READ fault NOTIFY typedChanged FINAL)
    // As they were when last looked at.
    Q_PROPERTY(QStringList offers READ offers NOTIFY offersChanged FINAL)

 public:
    struct Actions {
        // Newest first.
        std::function<std::vector<base::Seconds>()> ownLengths;
        std::function<void(base::Seconds)> start;
    };

    explicit OwnFocusAdapter(Actions actions) : actions_(std::move(actions)) {}

    QString understood() const;
    QString fault() const;
    QStringList offers() const;

    Q_INVOKABLE void type(const QString& text);
    // What is typed; where that is no length, nothing.
    Q_INVOKABLE void startTyped() const;
    Q_INVOKABLE void renewOffers();
    Q_INVOKABLE void startOffered(int index) const;
    // Answers whether there is one.
    Q_INVOKABLE bool startNewest() const;

 signals:
    void typedChanged();
    void offersChanged();

 private:
    Actions actions_;
    presentation::TypedLength typed_;
    std::vector<base::Seconds> offers_;
};

}  // namespace hearthmark::ui
