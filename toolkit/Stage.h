#pragma once

#include "toolkit/Accessible.h"
#include "toolkit/FormStack.h"
#include "toolkit/StageSize.h"
#include "toolkit/WindowGrip.h"

#include <QWidget>
#include <vector>

namespace toolkit {

/// The program's window, borderless and of any size. It shows the 800 x 600 logical pixels on which
/// all forms lie as large as it can, and the background while no form is shown. A wider or taller
/// window carries on the edges of the background.
class Stage : public QWidget, public Accessible {
    Q_OBJECT
public:
    /// The stage of the program. Created by the first call, and destroyed with the application
    /// object.
    static Stage& Get();

    /// What the forms lie on.
    QWidget& Area() { return *mArea; }
    FormStack& Forms() { return mForms; }

    /// Shows the window, in the size and at the place that it had when the program was last left,
    /// and makes it the active one.
    void Appear();

    // Sizes are in percent of 800 x 600 of Qt's pixels.

    /// The sizes that fit the screen.
    std::vector<int> Sizes() const;
    /// The present size; not one of `Sizes` if the window was resized by its edges.
    int Size() const;
    /// Gives the window another size, with the same middle; 0 for that of a first start. Ends full
    /// screen.
    void SetSize(int percent);
    /// The next larger size (1) or the next smaller one (-1), if there is one.
    void StepSize(int direction);

    /// Redraws everything if the window has come to a screen of another density. To be called
    /// before anything on the stage is painted.
    void CheckDensity();

    void SetFullScreen(bool full);

    /// Keeps size and place for the next start.
    void Remember() const;

    QAccessibleInterface* NewInterface() override;

Q_SIGNALS:
    /// The size changed, or full screen began or ended.
    void SizeChanged();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;

private:
    Stage();
    void AddKeys();
    void LayOut();
    void MakeGeometryFit();
    QSize AvailableSize() const;

    QWidget* mArea;
    FormStack mForms;
    QRect mWindowed; // where the window is when it does not fill the screen
    WindowGrip mGrip{*this};
};

} // namespace toolkit
