// Tests that run once for each way in which video is drawn.
#pragma once

#include <QStringList>

/// Test data: the ways, which all are to show the same.
void canvases();
/// Test data: each of these clips in each way; the column is "clip".
void canvasesAndClips(const QStringList &clips);

/// Has windows draw video in the way of the row that runs. For windows that are made afterwards.
void useCanvas();
