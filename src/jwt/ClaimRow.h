// A row with a time claim's name and dates, and a sign when something is wrong with them.
#pragma once

#include "chrome/DetailRow.h"
#include "jwt/JWTDecoder.h"
#include "jwt/TimeClaimTexts.h"

namespace tarnquill {

class ClaimRow : public DetailRow {
    Q_OBJECT

public:
    explicit ClaimRow(QWidget* parent = nullptr) : DetailRow(parent) {}

    void setClaim(JWTDecoder::TimeClaim::Name name, const TimeClaimTexts& claim);

protected:
    void paintText(QPainter& painter, const QRect& area) override;

private:
    QString m_name;
    bool m_hasWarning = false;
};

} // namespace tarnquill
