#pragma once

#include "platform/RegistryStore.h"

#include <QSettings>
#include <map>
#include <memory>

namespace platform
{

// The settings store as a per-user file. Each key is a group of the file; value names are
// matched without regard to case. Every change is written at once and atomically (the file
// is replaced, never rewritten in place). The file is first looked at by the first operation,
// so that a program that stops before that (a refused second instance) touches nothing. A
// file that cannot be read as settings is renamed aside then and the store starts empty.
class FileRegistryStore : public RegistryStore
{
public:
    // fileName: the full path of the settings file.
    explicit FileRegistryStore(const QString& fileName);
    ~FileRegistryStore() override;

    // $XDG_CONFIG_HOME/Kestrane/Quorl.conf
    static QString defaultFileName();

    long RegOpenKeyA(std::uint32_t hive, const QString& path, Handle& key) override;
    long RegCreateKeyA(std::uint32_t hive, const QString& path, Handle& key) override;
    long RegQueryValueExA(Handle key, const QString& name, std::uint32_t& type, QByteArray* data,
                          std::uint32_t& length) override;
    long RegSetValueExA(Handle key, const QString& name, std::uint32_t type,
                        const QByteArray& data) override;
    long RegCloseKey(Handle key) override;

    // The name the unreadable file was renamed to, if one was found at the first operation.
    QString setAsideFileName() const { return setAside_; }

private:
    QSettings& settings();
    QString groupOf(std::uint32_t hive, const QString& path) const;
    static QString valueKey(const QString& group, const QString& name);
    bool groupExists(const QString& group);
    QString storedName(const QString& group, const QString& name);
    Handle newHandle(const QString& group);

    QString fileName_;
    QString setAside_;
    std::unique_ptr<QSettings> settings_;
    std::map<Handle, QString> open_;
    Handle next_ = 1;
};

} // namespace platform
