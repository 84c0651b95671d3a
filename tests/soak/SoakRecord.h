// What a soak has seen.
#pragma once

#include "ProcessFigures.h"

#include <QFile>
#include <QList>
#include <QString>

/// What the program and its children hold at a time.
struct SoakSample {
    double minute = 0;
    int actions = 0; ///< Done until then.
    bool atRest = false;
    ProcessFigures program;
    ProcessFigures children;
};

class SoakRecord {
public:
    /// Writes each sample to the file as it comes, as comma-separated values.
    explicit SoakRecord(const QString &file);

    void add(const SoakSample &sample);

    /// The samples at rest, a line for each, and then what became of each figure.
    QString table() const;
    /// Whether all that is held at rest is flat, after a sixth of these minutes.
    bool isFlat(double minutes) const;
    QString verdicts(double minutes) const;

private:
    QFile m_file;
    QList<SoakSample> m_atRest;
};
