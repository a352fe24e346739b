// Esc and Enter on the kit's prompts: Esc does what cancel or the close button
// does, Enter presses the default button once, and a held-down Enter (the key
// that answered the window before) answers nothing.

#include "cqinputpassword.h"
#include "promotwin.h"
#include "promptdialog.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

class TestPromptKeys : public QObject
{
    Q_OBJECT

    std::unique_ptr<QWidget> m_prompt;
    QWidget* m_keyTarget = nullptr;
    std::unique_ptr<QSignalSpy> m_answered;
    std::unique_ptr<QSignalSpy> m_cancelled;   // none for PromotWin: it closes unanswered

    void open(QString const& kind)
    {
        m_cancelled.reset();
        if (kind == QLatin1String("dialog")) {
            auto* dialog = new PromptDialog(PromptDialog::MODE_ONE_ROW_TWO_BTN, QStringLiteral("确定删除？"), QString());
            m_answered.reset(new QSignalSpy(dialog, &QDialog::accepted));
            m_cancelled.reset(new QSignalSpy(dialog, &QDialog::rejected));
            m_prompt.reset(dialog);
        } else if (kind == QLatin1String("password")) {
            auto* password = new CQInputPassword;
            m_answered.reset(new QSignalSpy(password, &CQInputPassword::sig_submit));
            m_cancelled.reset(new QSignalSpy(password, &CQInputPassword::sig_close));
            QTest::keyClicks(password->lineEdit(), QStringLiteral("s3cret"));
            m_prompt.reset(password);
        } else {
            auto* promot = new PromotWin;
            promot->setAttribute(Qt::WA_DeleteOnClose, false);
            PromotWin::sInfo info;
            info.text = QStringLiteral("将失去对电脑的安全防护，是否确认退出？");
            info.leftBtnText = kind == QLatin1String("promot two buttons") ? QStringLiteral("取消") : QString();
            promot->setParas(info);
            m_answered.reset(new QSignalSpy(promot, &PromotWin::sig_right_btn_clicked));
            m_prompt.reset(promot);
        }
        // Keys typed into the password field reach the window from there.
        auto* field = m_prompt->findChild<QLineEdit*>();
        m_keyTarget = field ? static_cast<QWidget*>(field) : m_prompt.get();
        m_prompt->show();
    }

private slots:
    void keys_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<bool>("autoRepeat");
        QTest::addColumn<QString>("outcome");   // answered, cancelled, none
        for (char const* kind : {"dialog", "promot two buttons", "promot one button", "password"}) {
            QByteArray const k(kind);
            QTest::newRow(k + ": Esc") << kind << int(Qt::Key_Escape) << 0 << false << "cancelled";
            QTest::newRow(k + ": Return") << kind << int(Qt::Key_Return) << 0 << false << "answered";
            QTest::newRow(k + ": keypad Enter") << kind << int(Qt::Key_Enter) << int(Qt::KeypadModifier) << false << "answered";
            QTest::newRow(k + ": held-down Return") << kind << int(Qt::Key_Return) << 0 << true << "none";
            QTest::newRow(k + ": Ctrl+Return") << kind << int(Qt::Key_Return) << int(Qt::ControlModifier) << false << "none";
        }
    }

    void keys()
    {
        QFETCH(QString, kind);
        QFETCH(int, key);
        QFETCH(int, modifiers);
        QFETCH(bool, autoRepeat);
        QFETCH(QString, outcome);
        open(kind);
        QKeyEvent press(QEvent::KeyPress, key, Qt::KeyboardModifiers(modifiers), QString(), autoRepeat);
        QApplication::sendEvent(m_keyTarget, &press);

        QCOMPARE(m_answered->count(), outcome == QLatin1String("answered") ? 1 : 0);
        if (m_cancelled)
            QCOMPARE(m_cancelled->count(), outcome == QLatin1String("cancelled") ? 1 : 0);
        // A submitted password waits for the owner's verdict with the window open.
        bool const stays = outcome == QLatin1String("none") || (outcome == QLatin1String("answered") && kind == QLatin1String("password"));
        QCOMPARE(m_prompt->isVisible(), stays);
        if (kind == QLatin1String("password") && outcome == QLatin1String("answered"))
            QCOMPARE(m_answered->first().first().toString(), QStringLiteral("s3cret"));
    }
};

QTEST_MAIN(TestPromptKeys)
#include "tst_prompt_keys.moc"
