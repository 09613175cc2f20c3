#pragma once

#include <QString>
#include <QTemporaryDir>

namespace tarnwell::test {

/// A temporary folder that a death test and its child have in common. The child runs the test from its start
/// with folders of its own; what it left is found in this one only.
class DeathFolder {
public:
    DeathFolder() {
        if (m_parent)
            qputenv(variable, m_folder.path().toUtf8());
    }
    ~DeathFolder() {
        if (m_parent)
            qunsetenv(variable);
    }
    DeathFolder(const DeathFolder&) = delete;
    DeathFolder& operator=(const DeathFolder&) = delete;

    [[nodiscard]] QString filePath(const QString& name) const {
        return qEnvironmentVariable(variable) + u'/' + name;
    }

private:
    static constexpr auto variable = "TARNWELL_DEATH_FOLDER";

    bool m_parent = !qEnvironmentVariableIsSet(variable);
    QTemporaryDir m_folder;
};

} // namespace tarnwell::test
