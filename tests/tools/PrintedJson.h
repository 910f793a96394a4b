// quorvictl's JSON output, read by an independent parser.
#pragma once

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "tools/ToolFixture.h"

namespace quorvi::test {

/// The one object that is a whole line on standard output. The exit code is as expected.
inline QJsonObject printedJson(const std::vector<std::string>& arguments, int exitCode = 0) {
    const auto result = quorvictl(arguments);
    EXPECT_EQ(result.exitCode, exitCode) << result.error;
    EXPECT_EQ(result.output.find('\n'), result.output.size() - 1) << result.output;
    QJsonParseError error{};
    const auto document = QJsonDocument::fromJson(QByteArray::fromStdString(result.output), &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << result.output;
    EXPECT_TRUE(document.isObject()) << result.output;
    return document.object();
}

/// The object that the text says, for comparing.
inline QJsonObject jsonObject(const char* text) {
    const auto document = QJsonDocument::fromJson(text);
    EXPECT_TRUE(document.isObject()) << text;
    return document.object();
}

inline void expectJson(const std::vector<std::string>& arguments, const char* expected) {
    const QJsonObject printed = printedJson(arguments);
    EXPECT_EQ(printed, jsonObject(expected)) << QJsonDocument(printed).toJson().constData();
}

} // namespace quorvi::test
