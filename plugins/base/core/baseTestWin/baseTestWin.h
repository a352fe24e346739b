#pragma once

#include <QList>
#include <QWidget>

class BaseTestPage;
class BaseTestWinPrivate;

// The developer test window ("基础测试"), opened from the right-top menu while
// the developer test plugin is loaded. Its pages raise every backend event
// with fields the tester edits, through the bridge singletons' own signals, so
// each one takes the road an event of the backend takes into the plugin. A
// "重复" count sends a page's events up to 50 times at once; one line at the
// foot tells what was sent or why it was refused.
//
// Frameless in the product's light look, dragged by its title bar, not modal,
// closed by Esc or its close button, deleted when closed.
class BaseTestWin : public QWidget
{
    Q_OBJECT
public:
    explicit BaseTestWin(QWidget* parent = nullptr);
    ~BaseTestWin() override;

    // In navigation order.
    QList<BaseTestPage*> pages() const;
    // The status line, as shown (plain text).
    QString statusText() const;
    int repeatCount() const;

public slots:
    void slot_showPage(int index);
    // Sends the page's chosen events as often as the repeat count says.
    void slot_sendPage(BaseTestPage* page);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void InitControl();

    BaseTestWinPrivate* d_ptr = nullptr;
};
