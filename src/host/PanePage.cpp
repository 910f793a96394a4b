#include "host/PanePage.h"

#include <QCoreApplication>
#include <QVBoxLayout>

namespace quorvi {

namespace {

PanePage* gSelectedPage = nullptr;

} // namespace

PanePage::PanePage(std::unique_ptr<LoadedPane> pane, QWidget* parent)
    : QWidget(parent), m_pane(std::move(pane)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_pane->mainView());
    // The host adds its own margin around pages.
    if (QLayout* inner = m_pane->mainView()->layout())
        inner->setContentsMargins(0, 0, 0, 0);
    m_settling.setSingleShot(true);
    connect(&m_settling, &QTimer::timeout, this, &PanePage::settle);
    // An application that is told to quit may leave its windows open.
    connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this, &PanePage::unselect);
}

PanePage::~PanePage() {
    unselect();
    // A pane's view dies with its pane, not with this page.
    m_pane->mainView()->setParent(nullptr);
}

// While changing pages a host may hide and show one several times. Only the final state counts.
void PanePage::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    m_settling.start();
}

void PanePage::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    m_settling.start();
}

void PanePage::settle() {
    // A minimised window is still visible, to Qt and to us.
    if (isVisible())
        select();
    else
        unselect();
}

void PanePage::select() {
    if (gSelectedPage == this)
        return;
    // The host may keep the previous page for a while.
    if (gSelectedPage)
        gSelectedPage->unselect();
    gSelectedPage = this;
    m_pane->select();
}

void PanePage::unselect() {
    if (gSelectedPage != this)
        return;
    gSelectedPage = nullptr;
    m_pane->unselect();
}

} // namespace quorvi
