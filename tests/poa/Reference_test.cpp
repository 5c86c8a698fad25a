// The project's reference output: both skeleton files for an IDL file that
// uses every feature of the plug-in at once.
#include "PoaTestSupport.h"
#include "YV_TestSupport.h"

#include <gtest/gtest.h>

namespace {

TEST(Reference, EveryFeatureWithTieAndReplyHandlers)
{
    const std::string idl = yvtest::read_file(poatest::golden_path("reference/reference.idl"));
    poatest::PoaRun run = poatest::run_poa(idl, "-xTIE:-xAMICallbacks", "reference.idl");
    ASSERT_TRUE(run.parsed) << run.err;
    ASSERT_TRUE(run.hh_written && run.cxx_written) << run.err;
    EXPECT_EQ("", run.err);
    EXPECT_EQ("", yvtest::compare_golden(poatest::golden_path("reference/referenceS.hh.golden"), run.hh));
    EXPECT_EQ("", yvtest::compare_golden(poatest::golden_path("reference/referenceS.cxx.golden"), run.cxx));

    // The same input gives the same bytes.
    poatest::PoaRun again = poatest::run_poa(idl, "-xTIE:-xAMICallbacks", "reference.idl");
    EXPECT_EQ(run.hh, again.hh);
    EXPECT_EQ(run.cxx, again.cxx);
}

} // namespace
