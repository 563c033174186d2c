#pragma once
// One function for each table, in the file of its suite.

#include "standin/host/suites/SuiteDescription.h"

namespace standin
{
SuiteDescription DescribeBasicSuite();
SuiteDescription DescribeCommandSuite();
SuiteDescription DescribeDynamicStreamSuite2();
SuiteDescription DescribeDynamicStreamSuite5();
SuiteDescription DescribeEffectSuite1();
SuiteDescription DescribeEffectSuite3();
SuiteDescription DescribeItemSuite();
SuiteDescription DescribeLayerSuite();
SuiteDescription DescribeRegisterSuite();
SuiteDescription DescribeStreamSuite4();
SuiteDescription DescribeStreamSuite7();
SuiteDescription DescribeUtilitySuite3();
SuiteDescription DescribeUtilitySuite7();
SuiteDescription DescribeUtilitySuite11();
SuiteDescription DescribePanelSuite();
SuiteDescription DescribeAppSuite();
SuiteDescription DescribeSuitesSuite();
} // namespace standin
