// Whether a mouse is connected, beside the text that says it.
#pragma once

#include <QWidget>

#include <cstdint>

namespace quorvi {

enum class Connection : std::uint8_t { none, demonstration, mouse };

/// A crossed ring, a ring and a disc: told apart by their shapes, and a mouse that is there by its colour
/// too. Its text says all there is to say, so that it is nothing to assistive programs.
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
