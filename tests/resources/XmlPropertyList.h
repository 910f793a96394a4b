// Reads the XML property lists of the bundle for the tests, independently of the program's reader and its
// possible faults.
#pragma once

#include <QFile>
#include <QVariant>
#include <QXmlStreamReader>

namespace quorvi::test {

inline QVariant readValue(QXmlStreamReader& xml) {
    const QString type = xml.name().toString();
    if (type == "dict") {
        QVariantMap map;
        while (xml.readNextStartElement()) {
            const QString key = xml.readElementText();
            xml.readNextStartElement();
            map.insert(key, readValue(xml));
        }
        return map;
    }
    if (type == "array") {
        QVariantList list;
        while (xml.readNextStartElement())
            list.append(readValue(xml));
        return list;
    }
    const QString text = xml.readElementText();
    if (type == "integer")
        return text.toInt();
    if (type == "real")
        return text.toDouble();
    return type == "string" ? QVariant(text) : QVariant(type == "true");
}

/// The top-level dictionary of the file; empty when the file cannot be read or is not well formed.
inline QVariantMap readXmlPropertyList(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QXmlStreamReader xml(&file);
    if (!xml.readNextStartElement() || !xml.readNextStartElement())
        return {};
    const QVariantMap map = readValue(xml).toMap();
    return xml.hasError() ? QVariantMap() : map;
}

} // namespace quorvi::test
