#include "cqtextbutton.h"

#include "clogdebug.h"

CQTextButton::CQTextButton(QWidget* parent)
    : CQTextButton(QString(), KIND_LINK, 14, parent)
{
}

CQTextButton::CQTextButton(int kind, int fontSize, QWidget* parent)
    : CQTextButton(QString(), kind, fontSize, parent)
{
}

CQTextButton::CQTextButton(QString const& text, int kind, int fontSize, QWidget* parent)
    : QPushButton(text, parent)
{
    setFlat(true);
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::NoFocus);
    setParas(kind, fontSize);
}

CQTextButton::~CQTextButton() = default;

void CQTextButton::setParas(int kind, int fontSize)
{
    if (kind != KIND_LINK && kind != KIND_PLAIN) {
        BFLOG(3, "platform/basegui/cqtextbutton", "[CQTextButton] kind [%d] not support, use 0", kind);
        kind = KIND_LINK;
    }
    m_kind = kind;
    m_fontSize = qBound(6, fontSize, 72);
    applyStyle();
}

int CQTextButton::kind() const
{
    return m_kind;
}

int CQTextButton::fontSize() const
{
    return m_fontSize;
}

void CQTextButton::applyStyle()
{
    QString const color = m_kind == KIND_LINK ? QStringLiteral("#356DEE") : QStringLiteral("#333444");
    setStyleSheet(QStringLiteral("CQTextButton{background:transparent;border:none;padding:0px;color:%1;"
                                 "font-family:\"Noto Sans CJK SC\";font-size:%2px;text-align:left;}"
                                 "CQTextButton:hover{color:#5A88F2;text-decoration:underline;}"
                                 "CQTextButton:pressed{color:#2A57C0;}"
                                 "CQTextButton:disabled{color:#B5B6BD;}")
                      .arg(color)
                      .arg(m_fontSize));
}
