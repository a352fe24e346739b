#include "cqinputpassword.h"

#include "clogdebug.h"
#include "cqbutton.h"
#include "cqnoticeicon.h"
#include "promptkeys.h"
#include "prompttitlewin.h"
#include "promptwindow_p.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>
#include <QVBoxLayout>

namespace {

char const* const kModule = "platform/basegui/cqinputpassword";
char const* const kErrorProperty = "error";

char const* const kStyle =
    "#CQInputPassword{background:#FFFFFF;border:1px solid #DFE1E6;}"
    "#m_pLabPrompt{font-family:\"Noto Sans CJK SC\";font-size:14px;color:#333444;}"
    "#m_pLabLabel{font-family:\"Noto Sans CJK SC\";font-size:14px;color:#515260;}"
    "#m_pLabHint{font-family:\"Noto Sans CJK SC\";font-size:12px;color:#7A7B85;}"
    "#m_pLabError{font-family:\"Noto Sans CJK SC\";font-size:12px;color:#F5455C;}"
    "#m_pEditPassword{font-family:\"Noto Sans CJK SC\";font-size:14px;color:#333444;background:#FFFFFF;"
    "border:1px solid #DFE1E6;border-radius:4px;padding:0px 8px;}"
    "#m_pEditPassword:focus{border:1px solid #356DEE;}"
    "#m_pEditPassword[error=\"true\"]{border:1px solid #F5455C;}";

QString orDefault(QString const& text, char const* fallback)
{
    return text.isEmpty() ? QString::fromUtf8(fallback) : text;
}

QLabel* plainLabel(char const* name, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace

struct CQInputPassword::Private
{
    CQInputPassword* q = nullptr;
    sInfo info;
    int uiType = UITYPE_NORMAL;
    PromptTitleWin* title = nullptr;
    QLabel* prompt = nullptr;
    QLabel* label = nullptr;
    QLineEdit* edit = nullptr;
    QLabel* hint = nullptr;
    QLabel* error = nullptr;
    CQButton* ok = nullptr;
    CQButton* cancel = nullptr;

    void InitUI();
    void InitUIField(QVBoxLayout* main);
    void InitControl();
    void showError(QString const& text);
    void dismiss();
};

void CQInputPassword::Private::InitUI()
{
    q->setObjectName("CQInputPassword");
    q->setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    q->setAttribute(Qt::WA_StyledBackground);
    q->setStyleSheet(kStyle);
    q->setFixedWidth(420);

    auto* main = new QVBoxLayout(q);
    main->setContentsMargins(0, 0, 0, 0);
    main->setSpacing(0);
    title = new PromptTitleWin(q);
    main->addWidget(title);

    auto* top = new QHBoxLayout;
    top->setContentsMargins(24, 24, 24, 16);
    top->setSpacing(12);
    auto* icon = new CQNoticeIcon(CQNoticeIcon::ICON_WARNING, q);
    icon->setFixedSize(24, 24);
    prompt = plainLabel("m_pLabPrompt", q);
    prompt->setWordWrap(true);
    top->addWidget(icon, 0, Qt::AlignTop);
    top->addWidget(prompt, 1);
    main->addLayout(top);
    InitUIField(main);

    auto* bottom = new QHBoxLayout;
    bottom->setContentsMargins(24, 16, 24, 24);
    bottom->setSpacing(12);
    bottom->addStretch(1);
    cancel = new CQButton(QString(), CQButton::KIND_SECONDARY, 14, 400, q);
    cancel->setObjectName("m_pBtnCancel");
    cancel->setFixedSize(88, 32);
    ok = new CQButton(QString(), CQButton::KIND_PRIMARY, 14, 400, q);
    ok->setObjectName("m_pBtnOk");
    ok->setFixedSize(88, 32);
    bottom->addWidget(cancel);
    bottom->addWidget(ok);
    main->addLayout(bottom);
}

void CQInputPassword::Private::InitUIField(QVBoxLayout* main)
{
    auto* grid = new QGridLayout;
    grid->setContentsMargins(24, 0, 24, 0);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(6);
    label = plainLabel("m_pLabLabel", q);
    edit = new QLineEdit(q);
    edit->setObjectName("m_pEditPassword");
    edit->setEchoMode(QLineEdit::Password);
    edit->setFixedHeight(32);
    edit->setMaxLength(256);
    edit->setProperty(kErrorProperty, false);
    hint = plainLabel("m_pLabHint", q);
    error = plainLabel("m_pLabError", q);
    error->hide();
    grid->addWidget(label, 0, 0, Qt::AlignVCenter);
    grid->addWidget(edit, 0, 1);
    grid->addWidget(hint, 1, 1);
    grid->addWidget(error, 1, 1);   // shares the hint's place; one of them shows
    grid->setColumnStretch(1, 1);
    main->addLayout(grid);
}

void CQInputPassword::Private::InitControl()
{
    QObject::connect(ok, &QPushButton::clicked, q, &CQInputPassword::slot_submit);
    // No returnPressed: the field passes Enter on to the window, which
    // would submit a second time.
    QObject::connect(cancel, &QPushButton::clicked, q, [this]() { dismiss(); });
    QObject::connect(title, &PromptTitleWin::sig_close_btn_clicked, q, [this]() { dismiss(); });
    // Typing again after a rejection ends the error look.
    QObject::connect(edit, &QLineEdit::textEdited, q, [this]() {
        if (uiType == UITYPE_ERROR)
            q->slot_updateUIType(UITYPE_NORMAL);
    });
}

void CQInputPassword::Private::showError(QString const& text)
{
    uiType = UITYPE_ERROR;
    edit->setProperty(kErrorProperty, true);
    error->setText(text);
    error->show();
    hint->hide();
    edit->style()->unpolish(edit);
    edit->style()->polish(edit);
    basegui::detail::fitHeightToWidth(q);
}

void CQInputPassword::Private::dismiss()
{
    q->hide();
    emit q->sig_close();
}

CQInputPassword::CQInputPassword(QWidget* parent)
    : QWidget(parent)
    , d(new Private)
{
    d->q = this;
    d->InitUI();
    d->InitControl();
    setInfo(sInfo());
}

CQInputPassword::~CQInputPassword()
{
    delete d;
    d = nullptr;
}

void CQInputPassword::setInfo(sInfo const& info)
{
    d->info = info;
    QString const title = orDefault(info.title, "提示");
    d->title->setParas(PromptTitleWin::TYPE_NORMAL, title, false, true);
    setWindowTitle(title);
    d->prompt->setText(info.prompt);
    d->prompt->setVisible(!info.prompt.isEmpty());
    d->label->setText(info.label);
    d->label->setVisible(!info.label.isEmpty());
    d->hint->setText(info.hint);
    d->ok->setText(orDefault(info.okText, "确定"));
    d->cancel->setText(orDefault(info.cancelText, "取消"));
    slot_updateUIType(UITYPE_NORMAL);
}

CQInputPassword::sInfo CQInputPassword::info() const
{
    return d->info;
}

int CQInputPassword::uiType() const
{
    return d->uiType;
}

QString CQInputPassword::password() const
{
    return d->edit->text();
}

void CQInputPassword::clear()
{
    d->edit->clear();
    slot_updateUIType(UITYPE_NORMAL);
}

QLineEdit* CQInputPassword::lineEdit() const
{
    return d->edit;
}

CQButton* CQInputPassword::okButton() const
{
    return d->ok;
}

CQButton* CQInputPassword::cancelButton() const
{
    return d->cancel;
}

PromptTitleWin* CQInputPassword::titleWin() const
{
    return d->title;
}

void CQInputPassword::keyPressEvent(QKeyEvent* event)
{
    if (!PromptKeys::handle(event, d->ok, [this]() { d->dismiss(); }))
        QWidget::keyPressEvent(event);
}

void CQInputPassword::slot_updateUIType(int type)
{
    if (type == UITYPE_ERROR) {
        d->showError(orDefault(d->info.errorText, "密码错误，请重新输入"));
        d->edit->selectAll();
        d->edit->setFocus();
        return;
    }
    if (type != UITYPE_NORMAL) {
        BFLogPrintX(3, kModule, __FUNCTION__, __LINE__, "[CQInputPassword] ui type [%d] not support", type);
        return;
    }
    d->uiType = UITYPE_NORMAL;
    d->edit->setProperty(kErrorProperty, false);
    d->error->hide();
    d->hint->setVisible(!d->info.hint.isEmpty());
    d->edit->style()->unpolish(d->edit);
    d->edit->style()->polish(d->edit);
    basegui::detail::fitHeightToWidth(this);
}

void CQInputPassword::slot_submit()
{
    QString const text = d->edit->text();
    if (text.isEmpty()) {
        d->showError(QString::fromUtf8("请输入密码"));
        return;
    }
    emit sig_submit(text);
}
