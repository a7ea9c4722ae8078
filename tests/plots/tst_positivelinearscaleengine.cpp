// The x axis engine that moves a scale starting below zero up to zero.

#include <figura/scales/PositiveLinearScaleEngine.h>

#include <QtTest>

#include <qwt_scale_div.h>

class tst_PositiveLinearScaleEngine : public QObject
{
    Q_OBJECT

private slots:
    void isLinearOfBase10();
    void divideScaleMovesANegativeStartUp_data();
    void divideScaleMovesANegativeStartUp();
    void autoScaleMovesANegativeStartUp_data();
    void autoScaleMovesANegativeStartUp();
    void keepsStepsOfTheBaseEngine();
};

void tst_PositiveLinearScaleEngine::isLinearOfBase10()
{
    PositiveLinearScaleEngine engine;
    QCOMPARE(engine.base(), 10.0);
    QVERIFY(dynamic_cast<QwtLinearScaleEngine *>(&engine));
}

void tst_PositiveLinearScaleEngine::divideScaleMovesANegativeStartUp_data()
{
    QTest::addColumn<double>("x1");
    QTest::addColumn<double>("x2");
    QTest::addColumn<double>("lower");
    QTest::addColumn<double>("upper");

    QTest::newRow("negative start keeps its width") << -10.0 << 20.0 << 0.0 << 30.0;
    QTest::newRow("inverted positive start stays as it is") << 10.0 << -5.0 << 10.0 << -5.0;
    QTest::newRow("both negative: only x1 decides") << -5.0 << -10.0 << 0.0 << -5.0;
    QTest::newRow("zero start stays") << 0.0 << 7.0 << 0.0 << 7.0;
    QTest::newRow("positive interval stays") << 2.0 << 8.0 << 2.0 << 8.0;
}

void tst_PositiveLinearScaleEngine::divideScaleMovesANegativeStartUp()
{
    QFETCH(double, x1);
    QFETCH(double, x2);
    QFETCH(double, lower);
    QFETCH(double, upper);

    PositiveLinearScaleEngine engine;
    const QwtScaleDiv division = engine.divideScale(x1, x2, 10, 5, 0.0);
    QCOMPARE(division.lowerBound(), lower);
    QCOMPARE(division.upperBound(), upper);

    const QwtScaleDiv base = QwtLinearScaleEngine(10).divideScale(lower, upper, 10, 5, 0.0);
    QCOMPARE(division.ticks(QwtScaleDiv::MajorTick), base.ticks(QwtScaleDiv::MajorTick));
    QCOMPARE(division.ticks(QwtScaleDiv::MinorTick), base.ticks(QwtScaleDiv::MinorTick));
}

void tst_PositiveLinearScaleEngine::autoScaleMovesANegativeStartUp_data()
{
    QTest::addColumn<double>("x1");
    QTest::addColumn<double>("x2");
    QTest::addColumn<double>("movedX1");
    QTest::addColumn<double>("movedX2");

    QTest::newRow("negative start") << -10.0 << 20.0 << 0.0 << 30.0;
    QTest::newRow("positive start") << 10.0 << 40.0 << 10.0 << 40.0;
    QTest::newRow("both negative") << -5.0 << -10.0 << 0.0 << -5.0;
}

void tst_PositiveLinearScaleEngine::autoScaleMovesANegativeStartUp()
{
    QFETCH(double, x1);
    QFETCH(double, x2);
    QFETCH(double, movedX1);
    QFETCH(double, movedX2);

    PositiveLinearScaleEngine engine;
    double a = x1;
    double b = x2;
    double step = 0.0;
    engine.autoScale(10, a, b, step);

    double expectedA = movedX1;
    double expectedB = movedX2;
    double expectedStep = 0.0;
    QwtLinearScaleEngine(10).autoScale(10, expectedA, expectedB, expectedStep);
    QCOMPARE(a, expectedA);
    QCOMPARE(b, expectedB);
    QCOMPARE(step, expectedStep);
    QVERIFY(qMin(a, b) >= 0.0 || movedX2 < 0.0);
}

void tst_PositiveLinearScaleEngine::keepsStepsOfTheBaseEngine()
{
    PositiveLinearScaleEngine engine;
    const QwtScaleDiv division = engine.divideScale(-50.0, 50.0, 5, 2, 20.0);
    QCOMPARE(division.lowerBound(), 0.0);
    QCOMPARE(division.upperBound(), 100.0);
    const QList<double> major = division.ticks(QwtScaleDiv::MajorTick);
    QCOMPARE(major, (QList<double>{0.0, 20.0, 40.0, 60.0, 80.0, 100.0}));
}

QTEST_APPLESS_MAIN(tst_PositiveLinearScaleEngine)
#include "tst_positivelinearscaleengine.moc"
