#include "sampleWidgets.h"

#include <QLabel>
#include <QTextDocument>

namespace SampleWidgets {

QLabel* plainLabel(QString const& objectName, QString const& text, QSize const& size, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setObjectName(objectName);
    label->setTextFormat(Qt::PlainText);
    label->setText(text);
    label->setToolTip(plainToolTip(text));
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    label->setFixedSize(size);
    label->setStyleSheet(QStringLiteral("#%1{background:#FFFFFF;border:1px dashed #356DEE;color:#333444;"
                                        "font-family:\"Noto Sans CJK SC\";font-size:12px;}")
                             .arg(objectName));
    return label;
}

QString plainToolTip(QString const& text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal) : text;
}

void disposeWidget(QWidget* w)
{
    if (!w)
        return;
    w->hide();
    w->setParent(nullptr);
    w->deleteLater();
}

void disposeObject(QObject* object)
{
    if (object)
        object->deleteLater();
}

} // namespace SampleWidgets
