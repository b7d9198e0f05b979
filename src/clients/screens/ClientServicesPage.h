#pragma once

#include "clients/screens/ClientDesk.h"
#include "kit/Form.h"

#include <QWidget>

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace quillary {
class ComboSearch;
class DateField;
class Grid;
}  // namespace quillary

namespace quillary::clients {

class WordCombo;

/// The services a client takes: the list, the fields of the chosen one, and the diary that is made
/// from them.
class ClientServicesPage : public QWidget {
  Q_OBJECT

 public:
  explicit ClientServicesPage(ClientDesk& desk);

  void LoadChoices();
  /// Shows the services as they stand in the desk, with that element selected; without one the
  /// main service.
  void ShowServices(std::optional<size_t> element = {});
  /// The element that the fields belong to: the one selected, or the empty last one.
  size_t Element() const { return element_; }
  /// Takes what was typed for a service and not stored by a command, before another is chosen or
  /// the client is saved. False when it was refused; the fields then stay as they are.
  bool TakeEdited();
  QWidget* LastField() const;
  /// Opens the screen for a job that is not one of the services.
  void AddAJob();
  /// A billing address has no services of its own.
  void EnableSchedule(bool on);
  /// Whether something was typed for a service that is not stored.
  bool IsDataChanged() const { return fields_.IsDataChanged() || desk_.edit.AreServicesChanged(); }
  QBoxLayout* SideSlot() { return sideSlot_; }

 private:
  void MakeControls();
  void MakeCommands();
  void LayOut();
  QWidget* ScheduleFrame();
  QBoxLayout* FieldRows();
  QLayout* ServiceCommands();
  void ConnectControls();

  void RowChosen();
  size_t SelectedElement() const;
  void ShowSelected();
  void ShowFields(const ClientServiceForm& form);
  void ShowSchedule(const ClientServiceForm& form);
  ClientServiceForm Fields() const;
  void FollowMain(bool follow);
  void EnableFields();
  void FrequencyLeft();
  void PriceLeft();

  void Save(SaveServiceAs as);
  void AddNewService();
  void RemoveService();
  void ClearFields();
  void Reschedule();
  void AddAVisit();

  ClientDesk& desk_;
  FormState fields_;
  size_t element_ = 0;
  ClientServiceForm own_;  // the schedule of the service itself while that of the main one shows
  QString toldFrequency_;  // refused already, so that leaving the field is not a trap
  QBoxLayout* sideSlot_;

  QWidget* fraSchedule;
  Grid* grdServices;
  QLineEdit* txtClientServiceID;
  ComboSearch* cmbService;
  QLineEdit* txtPrice;
  QWidget* fraDiffSchedule;
  QComboBox* cmbJobType;
  QLabel* lblFrequency;
  WordCombo* cmbFrequency;
  DateField* dtpServiceNextVisit;
  ComboSearch* cmbEmployee;
  QPlainTextEdit* txtNotes;
  QCheckBox* chkSameScheduleAsMain;
  QPushButton* cmdRemoveService;
  QPushButton* cmdAddNewService;
  QPushButton* cmdClearServiceFields;
  QPushButton* cmdAddService;
  QPushButton* cmdSaveService;
  QPushButton* cmdReschedule;
  QPushButton* cmdAddOnceOff;
  QPushButton* cmdAddVisit;
};

}  // namespace quillary::clients
