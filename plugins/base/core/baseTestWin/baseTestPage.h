#pragma once

#include "controlrequestcheck.h"

#include <QPointer>
#include <QString>
#include <QVector>
#include <QWidget>

#include <functional>
#include <utility>

class CQButton;
class QComboBox;
class QFormLayout;
class QGroupBox;
class QLineEdit;
class QPlainTextEdit;
class QSpinBox;
class QVBoxLayout;

// One page of the developer test window: a group of backend events, each in a
// box of editable fields, and one "发送" button. Sending checks every chosen
// event first and emits nothing if one of them is refused, so a tester never
// gets half a scenario. The checks are those the client applies to events
// from outside (the D-Bus control service): texts capped, links http or https
// only, page names shaped like object names.
//
// Subclasses add their events in their constructor with addEvent and the
// field helpers; the emission itself goes straight to the bridge singleton's
// signal, so the event reaches the plugin exactly as the backend's would.
class BaseTestPage : public QWidget
{
    Q_OBJECT
public:
    // The repeat count of one press, for stress runs.
    static constexpr int kMaxRepeat = 50;

    BaseTestPage(QString const& objectName, QString const& title, QWidget* parent = nullptr);
    ~BaseTestPage() override;

    QString title() const;
    // Checks the chosen events, then emits each of them `times` times (held
    // to 1..kMaxRepeat). Returns the status line: what was sent, or why not.
    QString send(int times);

signals:
    // The page's "发送" button was pressed.
    void sig_sendRequested();

protected:
    // The limits of the backend's control interface: what passes here would
    // pass there too.
    static constexpr int kIdChars = ControlRequestCheck::kMaxIdLength;
    static constexpr int kLineChars = ControlRequestCheck::kMaxLineLength;
    static constexpr int kTextChars = ControlRequestCheck::kMaxTextLength;
    static constexpr int kUrlChars = ControlRequestCheck::kMaxUrlLength;
    static constexpr int kObjectNameChars = ControlRequestCheck::kMaxObjectNameLength;
    static constexpr int kMinSeconds = ControlRequestCheck::kMinSeconds;
    static constexpr int kMaxSeconds = ControlRequestCheck::kMaxSeconds;

    using Check = std::function<QString()>;
    using Emit = std::function<void()>;
    using Choices = QVector<std::pair<QString, int>>;

    // A checkable box for one event; the first event of a page starts checked.
    // `check` returns "" for a valid event, else the reason; the caps of the
    // box's text fields are checked before it.
    QFormLayout* addEvent(QString const& objectName, QString const& name, Check check, Emit emitter);
    // A line of text, or a block of it; both checked against `maxChars`.
    QLineEdit* addLine(QFormLayout* form, QString const& objectName, QString const& label, QString const& text, int maxChars);
    QPlainTextEdit* addText(QFormLayout* form, QString const& objectName, QString const& label, QString const& text,
                            int maxChars);
    QSpinBox* addNumber(QFormLayout* form, QString const& objectName, QString const& label, int min, int max, int value);
    // A choice among named values; chosenValue() reads it back.
    QComboBox* addChoice(QFormLayout* form, QString const& objectName, QString const& label, Choices const& choices,
                         int value);
    // A line of explanation for events without fields.
    void addHint(QFormLayout* form, QString const& text);

    static int chosenValue(QComboBox const* combo);

    // "" when `url` is an http or https address with a host, else the reason.
    static QString checkWebAddress(QString const& url);
    // "" when `name` can name a page (letters, digits, underscores, not
    // starting with a digit), else the reason.
    static QString checkObjectName(QString const& name);

private:
    struct TextField {
        QPointer<QWidget> edit;
        QGroupBox* box = nullptr;
        QString label;
        int maxChars = 0;
    };
    struct Event {
        QPointer<QGroupBox> box;
        QString name;
        Check check;
        Emit emitter;
    };

    void InitUI();
    void addTextField(QWidget* edit, QFormLayout* form, QString const& label, int maxChars);
    static QString fieldText(QWidget const* edit);
    QGroupBox* boxOf(QFormLayout* form) const;
    QString checkEvent(Event const& event) const;
    QString refuse(QString const& reason) const;

    QString m_title;
    QVBoxLayout* m_pEventsLayout = nullptr;
    CQButton* m_pBtnSend = nullptr;
    QVector<Event> m_events;
    QVector<TextField> m_textFields;
};
