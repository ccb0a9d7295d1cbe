#pragma once

#include <QString>
#include <cstdint>
#include <exception>

namespace platform
{

// The pending run-time error of a failing platform or engine call. ReportError reads it.
class RuntimeError : public std::exception
{
public:
    RuntimeError(std::int32_t number, QString source, QString description)
        : Number(number), Source(std::move(source)), Description(std::move(description)),
          what_(Description.toUtf8())
    {
    }

    const char* what() const noexcept override { return what_.constData(); }

    std::int32_t Number;
    QString Source;
    QString Description;

private:
    QByteArray what_;
};

// Result codes as signed 32-bit numbers, the way an interface call reports them.
constexpr std::int32_t hresult(std::uint32_t code)
{
    return static_cast<std::int32_t>(code);
}

inline const QString AgentSource = QStringLiteral("Agent.Control.1");

namespace errors
{
constexpr std::int32_t AgentNotInstalled = 339;
constexpr std::int32_t FormAlreadyShown = 400;
constexpr std::int32_t SoundSystemBusy = hresult(0x80040317);
constexpr std::int32_t ElementNotFound = hresult(0x8002801D);
constexpr std::int32_t SpeechInputError = hresult(0x80042502);
constexpr std::int32_t ObjectError = 50003;
constexpr std::int32_t FileNotFound = 53;
constexpr std::int32_t InvalidProcedureCall = 5;
constexpr std::int32_t BadFileFormat = hresult(0x80045003);
} // namespace errors

} // namespace platform
