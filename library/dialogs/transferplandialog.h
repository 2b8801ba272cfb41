#pragma once

#include <QDialog>

#include <memory>

namespace brisel
{

class EmptyTableHint;
class TransferPlan;
class TransferPlanModel;

namespace Ui
{
class TransferPlanDialog;
}

/// Shows what a transfer would do, and lets the user choose the songs. Writes nothing: accepted,
/// the plan has the ticks of what is to be copied.
class TransferPlanDialog : public QDialog
{
    Q_OBJECT

public:
    /// Shows \a plan, which has run and must outlive this. The memory takes \a speed bytes per
    /// second; 0 if that is unknown.
    TransferPlanDialog(TransferPlan &plan, qint64 speed, QWidget *parent = nullptr);
    ~TransferPlanDialog() override;

protected:
    void changeEvent(QEvent *event) override;

private slots:
    void on_filterComboBox_currentIndexChanged(int number);
    void on_selectAllPushButton_clicked();
    void on_selectNonePushButton_clicked();

private:
    void fitColumns();
    void showFirstRow();
    void showSums();
    QString countText() const;
    QString roomText() const;
    QString timeText() const;

    TransferPlan &m_plan;
    const qint64 m_speed;
    TransferPlanModel *m_model; ///< owned by the dialog
    std::unique_ptr<Ui::TransferPlanDialog> m_ui;
    EmptyTableHint *m_hint = nullptr; ///< owned by the table
};

} // namespace brisel
