#include "sampleNavigatePage.h"

#include "clogdebug.h"
#include "sampleWidgets.h"

#include <QLabel>
#include <QVBoxLayout>

namespace {
char const* const kModule = "examples/sample-plugin/sampleNavigatePage";
// The page area beside the navigation column.
int const kPageWidth = 852;
int const kPageHeight = 534;
int const kMargin = 40;
} // namespace

SampleNavigatePage::SampleNavigatePage(QString const& objectName, QString const& barName,
                                       QString const& description, QWidget* parent)
    : NavigateItemWidget(parent)
    , m_barName(barName)
{
    setObjectName(objectName);
    setFixedSize(kPageWidth, kPageHeight);
    m_pLayout = new QVBoxLayout(this);
    m_pLayout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    m_pLayout->setSpacing(16);
    m_pLayout->addWidget(SampleWidgets::plainLabel(objectName + QStringLiteral("_Description"), description,
                                                   QSize(kPageWidth - 2 * kMargin, 60)),
                         0, Qt::AlignHCenter | Qt::AlignTop);
    m_pLayout->addStretch();
}

SampleNavigatePage::~SampleNavigatePage()
{
    BFLOG(BFLOG_DEBUG, kModule, "[SampleNavigatePage] delete SampleNavigatePage obj");
}

QString SampleNavigatePage::getBarName()
{
    return m_barName;
}

// Inserted before the closing stretch, so the content stays at the top.
void SampleNavigatePage::addContent(QWidget* w)
{
    if (w)
        m_pLayout->insertWidget(m_pLayout->count() - 1, w, 0, Qt::AlignHCenter | Qt::AlignTop);
}
