// SPDX-License-Identifier: MIT
#include "ui/text/typed_text.h"

#include <QTextDocument>

#include "ui/text/text_conversion.h"

namespace hearthmark::ui {

std::string typedText(const QQuickTextDocument& document) {
    // What the document keeps between two lines.
    return toUtf8(document.textDocument()->toRawText().replace(QChar::ParagraphSeparator, '\n'));
}

}  // namespace hearthmark::ui
