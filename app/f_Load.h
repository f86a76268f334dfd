#pragma once

#include "toolkit/Form.h"

class QLabel;

/// The window shown while a folder is scanned and while a game loads.
class f_Load : public toolkit::Form {
    Q_OBJECT
public:
    f_Load();

    /// Shows that a game is loading.
    void ShowLoading();

    /// Shows how far a scan has come; a `folder` that is too long is shortened in the middle.
    void ShowScan(int songs, const QString& folder);

    QLabel* lLoading;
};
