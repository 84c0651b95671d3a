// A web page that notes the scripts it is to run.
#pragma once

#include "sources/WebPlayerRegistry.h"

#include <QStringList>

class RecordingPage final : public zeph::WebPage {
public:
    QStringList scripts;
    void evaluateJavaScript(const QString &script) override { scripts << script; }
};
