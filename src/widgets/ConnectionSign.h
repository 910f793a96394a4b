// The sign next to the text that says whether a mouse is connected.
#pragma once

#include <QWidget>

#include <cstdint>

namespace quorvi {

enum class Connection : std::uint8_t { none, demonstration, mouse };

/// A crossed ring, a ring and a disc: they differ in shape, and the sign of a connected mouse also in colour.
/// Hidden from assistive programs, because the text next to it says the same.
class ConnectionSign : public QWidget {
    Q_OBJECT

  public:
    explicit ConnectionSign(QWidget* parent = nullptr);

    void set(Connection connection);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    Connection m_connection = Connection::none;
};

} // namespace quorvi
