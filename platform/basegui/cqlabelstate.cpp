#include "cqlabelstate.h"

#include "clogdebug.h"

namespace {

struct Look
{
    char const* background;
    char const* text;
};

Look const kLooks[] = {
    { "#E6F7EE", "#1BA85B" },
    { "#FFF3E6", "#F08A1C" },
    { "#FEECEE", "#F5455C" },
    { "#F0F1F3", "#7A7B85" },
};

} // namespace

CQLabelState::CQLabelState(QWidget* parent)
    : CQLabelState(QString(), UITYPE_NORMAL, parent)
{
}

CQLabelState::CQLabelState(QString const& text, int uiType, QWidget* parent)
    : QLabel(text, parent)
{
    setObjectName("CQLabelState");
    setAlignment(Qt::AlignCenter);
    setUIType(uiType);
}

CQLabelState::~CQLabelState() = default;

void CQLabelState::setUIType(int uiType)
{
    if (uiType < UITYPE_NORMAL || uiType > UITYPE_DISABLED) {
        BFLOG(3, "platform/basegui/cqlabelstate", "[CQLabelState] ui type [%d] not support", uiType);
        uiType = UITYPE_DISABLED;
    }
    m_uiType = uiType;
    Look const& look = kLooks[uiType];
    setStyleSheet(QStringLiteral("CQLabelState{background:%1;color:%2;border:none;border-radius:2px;"
                                 "font-family:\"Noto Sans CJK SC\";font-size:10px;padding:0px 2px;}")
                      .arg(QLatin1String(look.background), QLatin1String(look.text)));
}

int CQLabelState::uiType() const
{
    return m_uiType;
}
