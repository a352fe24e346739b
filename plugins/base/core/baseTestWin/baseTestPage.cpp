#include "baseTestPage.h"

#include "clogdebug.h"
#include "cqbutton.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QSpinBox>
#include <QStringList>

namespace {

constexpr char kLogModule[] = "plugins/base/core/baseTestWin/baseTestPage";
// Room for a few lines of a body text without taking the whole page.
constexpr int kTextHeight = 64;

} // namespace

BaseTestPage::BaseTestPage(QString const& objectName, QString const& title, QWidget* parent)
    : QWidget(parent)
    , m_title(title)
{
    setObjectName(objectName);
    InitUI();
}

BaseTestPage::~BaseTestPage() = default;

void BaseTestPage::InitUI()
{
    auto* content = new QWidget();
    content->setObjectName(QStringLiteral("m_pPageContent"));
    m_pEventsLayout = new QVBoxLayout(content);
    m_pEventsLayout->setContentsMargins(16, 8, 16, 8);
    m_pEventsLayout->setSpacing(12);
    m_pEventsLayout->addStretch(1);

    auto* scroll = new QScrollArea(this);
    scroll->setObjectName(QStringLiteral("m_pScrollEvents"));
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidget(content);

    m_pBtnSend = new CQButton(QString::fromUtf8("发送"), CQButton::KIND_PRIMARY, 14, 400, this);
    m_pBtnSend->setObjectName(QStringLiteral("m_pBtnSend"));
    m_pBtnSend->setFixedSize(88, 32);
    connect(m_pBtnSend, &QPushButton::clicked, this, &BaseTestPage::sig_sendRequested);

    auto* bottom = new QHBoxLayout();
    bottom->setContentsMargins(16, 8, 16, 8);
    bottom->addStretch(1);
    bottom->addWidget(m_pBtnSend);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(scroll, 1);
    layout->addLayout(bottom);
}

QString BaseTestPage::title() const
{
    return m_title;
}

QFormLayout* BaseTestPage::addEvent(QString const& objectName, QString const& name, Check check, Emit emitter)
{
    auto* box = new QGroupBox(name);
    box->setObjectName(objectName);
    box->setCheckable(true);
    box->setChecked(m_events.isEmpty());
    auto* form = new QFormLayout(box);
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    form->setHorizontalSpacing(12);
    form->setVerticalSpacing(8);
    // Before the stretch that keeps the boxes at the top.
    m_pEventsLayout->insertWidget(m_pEventsLayout->count() - 1, box);
    m_events.append({box, name, std::move(check), std::move(emitter)});
    return form;
}

QGroupBox* BaseTestPage::boxOf(QFormLayout* form) const
{
    return form ? qobject_cast<QGroupBox*>(form->parentWidget()) : nullptr;
}

QLineEdit* BaseTestPage::addLine(QFormLayout* form, QString const& objectName, QString const& label, QString const& text,
                                 int maxChars)
{
    // No QLineEdit::setMaxLength: an over-long paste is refused with a reason
    // instead of being cut without a word.
    auto* edit = new QLineEdit(text);
    edit->setObjectName(objectName);
    addTextField(edit, form, label, maxChars);
    return edit;
}

QPlainTextEdit* BaseTestPage::addText(QFormLayout* form, QString const& objectName, QString const& label,
                                      QString const& text, int maxChars)
{
    auto* edit = new QPlainTextEdit(text);
    edit->setObjectName(objectName);
    edit->setFixedHeight(kTextHeight);
    addTextField(edit, form, label, maxChars);
    return edit;
}

void BaseTestPage::addTextField(QWidget* edit, QFormLayout* form, QString const& label, int maxChars)
{
    form->addRow(label, edit);
    m_textFields.append({edit, boxOf(form), label, maxChars});
}

QSpinBox* BaseTestPage::addNumber(QFormLayout* form, QString const& objectName, QString const& label, int min, int max,
                                  int value)
{
    auto* spin = new QSpinBox();
    spin->setObjectName(objectName);
    spin->setRange(min, max);
    spin->setValue(value);
    form->addRow(label, spin);
    return spin;
}

QComboBox* BaseTestPage::addChoice(QFormLayout* form, QString const& objectName, QString const& label,
                                   Choices const& choices, int value)
{
    auto* combo = new QComboBox();
    combo->setObjectName(objectName);
    for (auto const& choice : choices)
        combo->addItem(choice.first, choice.second);
    combo->setCurrentIndex(qMax(0, combo->findData(value)));
    form->addRow(label, combo);
    return combo;
}

void BaseTestPage::addHint(QFormLayout* form, QString const& text)
{
    auto* hint = new QLabel(text);
    hint->setObjectName(QStringLiteral("m_pLabHint"));
    hint->setTextFormat(Qt::PlainText);
    hint->setWordWrap(true);
    form->addRow(hint);
}

int BaseTestPage::chosenValue(QComboBox const* combo)
{
    return combo->currentData().toInt();
}

QString BaseTestPage::fieldText(QWidget const* edit)
{
    if (auto const* line = qobject_cast<QLineEdit const*>(edit))
        return line->text();
    if (auto const* block = qobject_cast<QPlainTextEdit const*>(edit))
        return block->toPlainText();
    return QString();
}

// A link in a notice is opened by the desktop's URL handler: file:, custom
// schemes and scripts must never get there, from a tester or anybody else.
QString BaseTestPage::checkWebAddress(QString const& url)
{
    if (!ControlRequestCheck::webAddress(url).isEmpty())
        return QString::fromUtf8("必须是带主机名的 http 或 https 网址");
    return QString();
}

QString BaseTestPage::checkObjectName(QString const& name)
{
    if (name.size() > kObjectNameChars)
        return QString::fromUtf8("超过 %1 个字符").arg(kObjectNameChars);
    if (!ControlRequestCheck::objectName(name).isEmpty())
        return QString::fromUtf8("只能由字母、数字和下划线组成，且不以数字开头");
    return QString();
}

QString BaseTestPage::checkEvent(Event const& event) const
{
    for (TextField const& field : m_textFields) {
        if (field.box != event.box || !field.edit)
            continue;
        if (fieldText(field.edit).size() > field.maxChars)
            return QString::fromUtf8("“%1”超过 %2 个字符").arg(field.label).arg(field.maxChars);
    }
    return event.check ? event.check() : QString();
}

QString BaseTestPage::refuse(QString const& reason) const
{
    BFLogPrintX(BFLOG_WARN, kLogModule, __FUNCTION__, __LINE__, "[BaseTestPage] %s not sent: %s",
                qUtf8Printable(objectName()), qUtf8Printable(reason));
    return QString::fromUtf8("未发送：%1").arg(reason);
}

QString BaseTestPage::send(int times)
{
    QVector<Event const*> chosen;
    for (Event const& event : qAsConst(m_events)) {
        if (event.box && event.box->isChecked())
            chosen.append(&event);
    }
    if (chosen.isEmpty())
        return refuse(QString::fromUtf8("没有选中的事件"));
    QStringList names;
    for (Event const* event : qAsConst(chosen)) {
        QString const reason = checkEvent(*event);
        if (!reason.isEmpty())
            return refuse(QString::fromUtf8("%1：%2").arg(event->name, reason));
        names << event->name;
    }

    int const repeat = qBound(1, times, kMaxRepeat);
    for (int i = 0; i < repeat; ++i) {
        for (Event const* event : qAsConst(chosen))
            event->emitter();
    }
    QString const sent = names.join(QString::fromUtf8("、"));
    BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__, "[BaseTestPage] sent [%s] %d times",
                qUtf8Printable(sent), repeat);
    return QString::fromUtf8("已发送：%1 × %2").arg(sent).arg(repeat);
}
