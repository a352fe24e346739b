#pragma once

#include <QPointer>

class QString;
class QWidget;
class SampleBus;
class SubMessageTipItemInterface;

// What the sample puts on the home page ("安全总览"): a row of the page's
// column, a card in the card row, a free-placed widget in the data area, and
// two panels of the message tip that switch to each other.
class SampleHomePageContributions
{
public:
    explicit SampleHomePageContributions(SampleBus& bus);
    ~SampleHomePageContributions();

    void mount();
    void unmount();

private:
    void mountRow();
    void mountCard();
    void mountDataAreaWidget();
    void mountMessagePanels();
    static SubMessageTipItemInterface* createPanel(QString const& objectName, QString const& text);
    static void linkPanels(SubMessageTipItemInterface* from, SubMessageTipItemInterface* to);

    SampleBus& m_bus;
    QPointer<QWidget> m_pRow;
    QPointer<QWidget> m_pCard;
    QPointer<QWidget> m_pDataAreaWidget;
    QPointer<SubMessageTipItemInterface> m_pPanelA;
    QPointer<SubMessageTipItemInterface> m_pPanelB;
};
