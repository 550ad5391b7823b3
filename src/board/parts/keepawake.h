#pragma once

#include <QObject>

#include <optional>

// While one lives, the system does not darken or lock the display, where it or its desktop has a
// service to ask.
class KeepAwake : public QObject
{
    Q_OBJECT

public:
    KeepAwake();
    ~KeepAwake() override;

private:
    void askDesktop();
    void releaseDesktop();

    std::optional<uint> m_cookie; // of the desktop's promise
};
