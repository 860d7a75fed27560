#pragma once

#include <QString>

// The picture shown while the console starts: the customer's own when the unit
// has /opt/hbi/splash.png (letterboxed on black into /opt/hbi/splash_user.png),
// else the product picture of the language.
QString splashPicture(const QString &language);
bool hasCustomerSplash();
// The product picture of the language, whatever the customer's.
QString productSplashPicture(const QString &language);
void createSplashScreen();
