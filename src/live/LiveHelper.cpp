#include "live/LiveHelper.h"

#include <QPushButton>

#include <algorithm>
#include <utility>

#include "live/ConnectionText.h"
#include "live/MiceOfComputer.h"
#include "live/MouseSetUp.h"
#include "live/RunningProfile.h"

namespace quorvi {

LiveHelper::LiveHelper(Panel panel) : m_panel(std::move(panel)), m_view(&m_panel.view) {
    connect(m_panel.views.quorviButtonGnomeExtension, &QPushButton::clicked, this, [this] {
        if (m_follower)
            m_follower->enableGnomeExtension();
    });
    connect(m_panel.views.listMice, &MiceList::useChosen, this, &LiveHelper::useMouse);
    // The list may change while the sheet is open, and the clicked button disappear.
    connect(
        m_panel.views.listMice, &MiceList::setUpChosen, this, &LiveHelper::setUpMouse, Qt::QueuedConnection);
    connect(
        m_panel.views.listMice, &MiceList::stopsChanged, this, [this] { orderStopsOfMice(m_panel.views); });
}

LiveHelper::~LiveHelper() = default;

void LiveHelper::follow(const EventBus& bus, const ProcessSerialNumber& helper) {
    if (std::exchange(m_helper, helper) == helper)
        return;
    forgetFollower();
    if (helper != ProcessSerialNumber{})
        m_follower = std::make_unique<HelperFollower>(bus, helper, static_cast<HelperNewsListener&>(*this));
    if (m_setUp)
        m_setUp->setFollower(m_follower.get());
    helperStateChanged();
}

void LiveHelper::stop() {
    m_helper = {};
    forgetFollower();
    show();
}

// The pressed inputs are not known any more.
void LiveHelper::forgetFollower() {
    if (m_setUp)
        m_setUp->setFollower(nullptr);
    m_follower.reset();
    if (m_view)
        m_panel.views.viewMouse->marks().setOnly(0, InputMarks::Reported);
}

const HelperNews& LiveHelper::state() const {
    static const HelperNews nothing;
    return m_follower ? m_follower->state() : nothing;
}

QString LiveHelper::connectionText() const {
    return connectionTextOf(state(), m_panel.text);
}

QString LiveHelper::runningProfile() const {
    const std::uint32_t number = state().runningProfile;
    return number > 0 ? m_panel.profileName(number) : QString();
}

QString LiveHelper::runningText() const {
    return quorvi::runningText(state(), runningProfile(), m_panel.text);
}

void LiveHelper::show() {
    if (!m_view)
        return;
    const HelperNews& helper = state();
    showRunningProfile(m_panel.views, helper, runningProfile(), m_panel.text);
    showMice(m_panel.views, helper, m_panel.text);
    m_panel.views.viewMouse->setReported(anyMouseIsThere(helper));
}

// The check box has already changed; if the helper refuses, it is changed back.
void LiveHelper::useMouse(const QString& id, bool inUse) {
    if (!m_follower)
        return;
    m_follower->use(id.toStdString(), inUse, [this](std::string_view error) {
        if (!error.empty())
            QMetaObject::invokeMethod(
                this, [this] { tellThatUseFailed(); }, Qt::QueuedConnection);
    });
}

void LiveHelper::setUpMouse(const QString& id) {
    const auto mouse = std::ranges::find(state().mice, id.toStdString(), &ListedHelperMouse::id);
    if (!m_view || m_setUp || mouse == state().mice.end())
        return;
    QDialog& sheet = m_panel.setUpPanel;
    m_setUp =
        std::make_unique<MouseSetUp>(MouseSetUp::Sheet{sheet, m_panel.setUpViews, m_panel.text}, *mouse);
    m_setUp->setFollower(m_follower.get());
    const QPointer self(this);
    m_panel.runSheet(sheet);
    if (self)
        m_setUp.reset();
}

// Several changes arrive together; show them once, after the bus has been processed.
void LiveHelper::helperStateChanged() {
    if (std::exchange(m_showScheduled, true))
        return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_showScheduled = false;
            show();
            if (m_setUp)
                m_setUp->helperChanged();
            emit changed();
            const std::pair running(state().runningProfile, state().runningStage);
            if (std::exchange(m_running, running) != running)
                emit runningChanged();
        },
        Qt::QueuedConnection);
}

void LiveHelper::tellThatUseFailed() {
    show();
    emit failed(m_panel.text("Your choice for the mouse could not be saved."));
}

void LiveHelper::helperInputChanged(const std::string& /*mouse*/, int input, bool pressed) {
    if (m_view)
        m_panel.views.viewMouse->reportInput(input, pressed);
}

void LiveHelper::helperCodeChanged(const std::string& mouse, std::uint16_t code, bool pressed) {
    QMetaObject::invokeMethod(
        this,
        [=, this] {
            if (m_setUp)
                m_setUp->codeChanged(mouse, code, pressed);
        },
        Qt::QueuedConnection);
}

} // namespace quorvi
