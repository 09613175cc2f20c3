#include "CommandLine.h"

#include "sample/SampleScale.h"

#include <QCommandLineParser>

#include <algorithm>
#include <array>

namespace tarnwell::tool {

namespace {

struct CommandTerms {
    const char* name;
    Command command;
    const char* databases;
    int count;
    int fileOnly; ///< Which of the databases must be a file; -1 for none.
    bool writes;  ///< Takes --overwrite.
    bool samples; ///< Takes --scale and --seed.
    const char* use;
};

constexpr auto commands = std::to_array<CommandTerms>({
    {"create", Command::Create, "DATABASE", 1, -1, true, false, "Make a new, empty database."},
    {"sample", Command::Sample, "DATABASE", 1, -1, true, true, "Make a database with sample data."},
    {"check", Command::Check, "DATABASE", 1, -1, false, false,
     "Look for damage and for rows that break a rule."},
    {"copy", Command::Copy, "FROM TO", 2, -1, false, false,
     "Fill an empty or missing database with another's rows."},
    {"backup", Command::Backup, "DATABASE FILE", 2, 1, true, false,
     "Copy a database to a file, also while the program runs."},
    {"restore", Command::Restore, "FILE DATABASE", 2, 0, true, false,
     "Put a backup in the place of a database."},
    {"migrate", Command::Migrate, "DATABASE FILE", 2, 1, false, false,
     "Save a database of an earlier version to a file, then bring it up to date."},
});

QString description() {
    QString text = QStringLiteral("Makes, checks and saves Tarnwell databases.\n\nCommands:\n");
    for (const CommandTerms& terms : commands)
        text += QStringLiteral("  %1 %2 %3\n")
                    .arg(QLatin1String(terms.name), -8)
                    .arg(QLatin1String(terms.databases), -14)
                    .arg(QLatin1String(terms.use));
    text += QStringLiteral(
        "\nA DATABASE is a file, or a catalog on a server by its address:\n"
        "  postgresql://host/catalog\n"
        "  postgresql:///catalog?host=/folder/of/socket&port=N\n"
        "  sqlserver://host/catalog\n"
        "A user, a password and a port may be added as in every such address. Without a user the\n"
        "platform signs in; a password is better kept in its password file.\n");
    text += QStringLiteral("\nScales of a sample:\n");
    for (const sample::Scale& scale : sample::scales())
        text += QStringLiteral("  %1 %2\n").arg(QLatin1String(scale.name), -8).arg(QLatin1String(scale.use));
    text += QStringLiteral(
                "\nA sample's dates lie around %1, whatever the clock says: the same scale and seed give\n"
                "the same data.\n"
                "\nEnds with 0 when all is well, 1 on a failure or when check finds something, and 2 when\n"
                "the arguments are wrong.")
                .arg(sample::baseDate.toString(Qt::ISODate));
    return text;
}

struct Options {
    QCommandLineOption help{{"h", "help"}, "Show this help."};
    QCommandLineOption version{{"v", "version"}, "Show the version."};
    QCommandLineOption overwrite{"overwrite", "Replace a file that exists."};
    QCommandLineOption scale{"scale", "Size of the sample: small (as it is without), office or large.",
                             "scale", "small"};
    QCommandLineOption user{
        "user", "With create: let this user of the server work with the catalog. May be repeated.", "name"};
    QCommandLineOption seed{"seed", "Number from which the sample is drawn, 1 if not given.", "number",
                            QString::number(sample::defaultSeed)};
};

Notice wrong(const QString& what) {
    return {QStringLiteral("tarnwell-db: %1\nTry 'tarnwell-db --help'.\n").arg(what), true};
}

/// What of the options does not fit the command; empty when all do.
QString faultOf(const CommandTerms& terms, const QCommandLineParser& parser, const Options& options) {
    const QString name = QString::fromLatin1(terms.name);
    if (parser.isSet(options.overwrite) && !terms.writes)
        return QStringLiteral("%1 takes no --overwrite").arg(name);
    if ((parser.isSet(options.scale) || parser.isSet(options.seed)) && !terms.samples)
        return QStringLiteral("%1 takes no --scale and no --seed").arg(name);
    if (parser.isSet(options.user) && terms.command != Command::Create)
        return QStringLiteral("%1 takes no --user").arg(name);
    return {};
}

/// What of the databases does not fit the command and its options; empty when all do.
QString faultOf(const CommandTerms& terms, const Request& request) {
    const QString name = QString::fromLatin1(terms.name);
    if (terms.fileOnly >= 0 && !request.databases[static_cast<std::size_t>(terms.fileOnly)].isFile())
        return QStringLiteral("%1 needs %2; copy works between servers as well")
            .arg(name, QLatin1String(terms.databases));
    const bool writesFile = request.databases.back().isFile();
    if (request.overwrite && !writesFile)
        return QStringLiteral("a catalog on a server is never overwritten");
    if (!request.users.isEmpty() && writesFile)
        return QStringLiteral("--user is for a catalog on a server");
    return {};
}

/// The databases of the words, or what is wrong with one of them.
std::variant<std::vector<DatabaseAddress>, AddressFault> databasesOf(const QStringList& words) {
    std::vector<DatabaseAddress> databases;
    for (const QString& word : words) {
        auto read = readAddress(word);
        if (auto* fault = std::get_if<AddressFault>(&read))
            return std::move(*fault);
        databases.push_back(std::get<DatabaseAddress>(std::move(read)));
    }
    return databases;
}

/// A request whose scale and seed are right, or what is wrong with them.
std::variant<Request, Notice> requestOf(const CommandTerms& terms, const QStringList& words,
                                        const QCommandLineParser& parser, const Options& options) {
    Request request{.command = terms.command,
                    .databases = {},
                    .overwrite = parser.isSet(options.overwrite),
                    .users = parser.values(options.user),
                    .scale = parser.value(options.scale)};
    if (words.size() != terms.count)
        return wrong(
            QStringLiteral("%1 needs %2").arg(QLatin1String(terms.name), QLatin1String(terms.databases)));
    auto databases = databasesOf(words);
    if (const auto* fault = std::get_if<AddressFault>(&databases))
        return wrong(fault->text);
    request.databases = std::get<0>(std::move(databases));
    if (const QString fault = faultOf(terms, request); !fault.isEmpty())
        return wrong(fault);
    if (!sample::findScale(request.scale))
        return wrong(QStringLiteral("unknown scale '%1'").arg(request.scale));
    bool isNumber = false;
    request.seed = parser.value(options.seed).toULongLong(&isNumber);
    if (!isNumber)
        return wrong(QStringLiteral("the seed '%1' is not a number").arg(parser.value(options.seed)));
    return request;
}

} // namespace

std::variant<Request, Notice> parseArguments(const QStringList& arguments) {
    QCommandLineParser parser;
    const Options options;
    parser.setApplicationDescription(description());
    parser.addOptions(
        {options.help, options.version, options.overwrite, options.user, options.scale, options.seed});
    parser.addPositionalArgument("command", "What to do.");
    parser.addPositionalArgument("databases", "What the command works on.", "DATABASE...");
    if (!parser.parse(arguments))
        return wrong(parser.errorText());
    if (parser.isSet(options.help))
        return Notice{parser.helpText()};
    if (parser.isSet(options.version))
        return Notice{QStringLiteral("tarnwell-db %1\n").arg(QLatin1String(TARNWELL_VERSION))};

    QStringList words = parser.positionalArguments();
    if (words.isEmpty())
        return wrong("no command given");
    const QString name = words.takeFirst();
    const auto terms = std::ranges::find_if(
        commands, [&](const CommandTerms& candidate) { return name == QLatin1String(candidate.name); });
    if (terms == commands.end())
        return wrong(QStringLiteral("unknown command '%1'").arg(name));
    if (const QString fault = faultOf(*terms, parser, options); !fault.isEmpty())
        return wrong(fault);
    return requestOf(*terms, words, parser, options);
}

} // namespace tarnwell::tool
