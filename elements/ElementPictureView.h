#pragma once
// The two small pictures of the data sheet, drawn with QPainter: the
// acid-base character (Image2) as a test tube whose liquid takes the colour
// an indicator would, and the crystal system as its unit cell seen at an
// angle, with the atoms at the corners and, for the centred cubic cells, in
// the body or on the faces.
#include <QWidget>

#include "elements/PeriodicTable.h"

class ElementPictureView : public QWidget {
  Q_OBJECT

 public:
  enum class Kind { AcidBasePicture, CrystalPicture };
  ElementPictureView(Kind kind, QWidget* parent = nullptr);

  void setAcidBase(AcidBase a);
  void setCrystal(CrystalSystem c);
  AcidBase acidBase() const { return acid_; }
  CrystalSystem crystal() const { return crystal_; }
  QSize sizeHint() const override { return {76, 76}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void paintAcidBase(class QPainter& p);
  void paintCrystal(class QPainter& p);

  Kind kind_;
  AcidBase acid_ = AcidBase::Unknown;
  CrystalSystem crystal_ = CrystalSystem::Unknown;
};
