#include "CommandLine.h"

#include "SampleScale.h"

#include <QCommandLineParser>

#include <algorithm>
#include <array>

namespace tarnwell::tool {

namespace {

struct CommandTerms {
    const char* name;
    Command command;
    const char* files;
    int fileCount;
    bool writes;  ///< Takes --overwrite.
    bool samples; ///< Takes --scale and --seed.
    const char* use;
};

constexpr auto commands = std::to_array<CommandTerms>({
    {"create", Command::Create, "FILE", 1, true, false, "Make a new, empty database."},
    {"sample", Command::Sample, "FILE", 1, true, true, "Make a database with sample data."},
    {"check", Command::Check, "FILE", 1, false, false, "Look for damage and for rows that break a rule."},
    {"backup", Command::Backup, "FILE TO", 2, true, false, "Copy a database, also while the program runs."},
    {"restore", Command::Restore, "BACKUP FILE", 2, true, false, "Put a backup in the place of a database."},
});

QString description() {
    QString text = QStringLiteral("Makes, checks and saves Tarnwell databases.\n\nCommands:\n");
    for (const CommandTerms& terms : commands)
        text += QStringLiteral("  %1 %2 %3\n")
                    .arg(QLatin1String(terms.name), -8)
                    .arg(QLatin1String(terms.files), -12)
                    .arg(QLatin1String(terms.use));
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
    QCommandLineOption seed{"seed", "Number from which the sample is drawn, 1 if not given.", "number",
                            QString::number(sample::defaultSeed)};
};

Notice wrong(const QString& what) {
    return {QStringLiteral("tarnwell-db: %1\nTry 'tarnwell-db --help'.\n").arg(what), true};
}

/// What of the options and file names does not fit the command; empty when all does.
QString faultOf(const CommandTerms& terms, const QCommandLineParser& parser, const Options& options,
                int files) {
    const QString name = QString::fromLatin1(terms.name);
    if (files != terms.fileCount)
        return QStringLiteral("%1 needs %2").arg(name, QLatin1String(terms.files));
    if (parser.isSet(options.overwrite) && !terms.writes)
        return QStringLiteral("%1 takes no --overwrite").arg(name);
    if ((parser.isSet(options.scale) || parser.isSet(options.seed)) && !terms.samples)
        return QStringLiteral("%1 takes no --scale and no --seed").arg(name);
    return {};
}

} // namespace

std::variant<Request, Notice> parseArguments(const QStringList& arguments) {
    QCommandLineParser parser;
    const Options options;
    parser.setApplicationDescription(description());
    parser.addOptions({options.help, options.version, options.overwrite, options.scale, options.seed});
    parser.addPositionalArgument("command", "What to do.");
    parser.addPositionalArgument("files", "The files that the command works on.", "FILE...");
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
    if (const QString fault = faultOf(*terms, parser, options, static_cast<int>(words.size()));
        !fault.isEmpty())
        return wrong(fault);
    if (!sample::findScale(parser.value(options.scale)))
        return wrong(QStringLiteral("unknown scale '%1'").arg(parser.value(options.scale)));
    bool isNumber = false;
    const quint64 seed = parser.value(options.seed).toULongLong(&isNumber);
    if (!isNumber)
        return wrong(QStringLiteral("the seed '%1' is not a number").arg(parser.value(options.seed)));
    return Request{terms->command, words, parser.isSet(options.overwrite), parser.value(options.scale), seed};
}

} // namespace tarnwell::tool
