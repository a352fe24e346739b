#pragma once

#include "cqbutton.h"
#include "msgmgrwininterface.h"

#include <QHBoxLayout>

// A pop-up of known height in each look, built like the client's pop-ups
// (frameless, deleted on close, 380 wide) and by default never shown by its
// sender.
class TestMsgWin : public MsgMgrWinInterface
{
public:
    static constexpr int kWidth = 380;

    explicit TestMsgWin(QString const& id, int aloneHeight = 160, int compactHeight = 100)
        : MsgMgrWinInterface(nullptr, id)
        , m_alone(aloneHeight)
        , m_compact(compactHeight)
    {
        setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
        setAttribute(Qt::WA_DeleteOnClose);
        setFixedWidth(kWidth);
        setFixedHeight(m_alone);
    }

    int changUIType(eUIType type) override
    {
        ++looksSet;
        setFixedHeight(type == EUITYPE_COMPACT ? m_compact : m_alone);
        return MsgMgrWinInterface::changUIType(type);
    }

    // What an updated notice does: its text and so its heights change.
    void setHeights(int aloneHeight, int compactHeight)
    {
        m_alone = aloneHeight;
        m_compact = compactHeight;
        setFixedHeight(uiType() == EUITYPE_COMPACT ? m_compact : m_alone);
    }

    int looksSet = 0;

private:
    int m_alone;
    int m_compact;
};

// A pop-up that counts down on its main button, as the notices do.
class TestCountdownWin : public TestMsgWin
{
public:
    TestCountdownWin(QString const& id, int seconds)
        : TestMsgWin(id)
        , button(new CQButton(QStringLiteral("知道了"), CQButton::KIND_PRIMARY, 14, 400, this))
    {
        auto* layout = new QHBoxLayout(this);
        layout->addWidget(button);
        button->setTime(seconds, true);
    }

    CQButton* button;
};

// A deadline the pointer must not move, like an administrator's shutdown order.
class TestDeadlineWin : public TestCountdownWin
{
public:
    using TestCountdownWin::TestCountdownWin;
    void setCountdownPaused(bool) override {}
};
