/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "TransferPlaces.h"

#include <atomic>
#include <memory>
#include <string>
#include <sys/resource.h>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ProcessCounts.h"
#include "Reserve.h"
#include "TransferTest.h"
#include "WaitFor.h"
#include "WireRecords.h"


typedef std::vector<TransferPlaces::PlaceRef> Places;


/*!	The process may have so many descriptors, until this goes. */
class DescriptorLimit {
public:
	explicit DescriptorLimit(rlim_t count)
	{
		getrlimit(RLIMIT_NOFILE, &fBefore);
		rlimit limit = fBefore;
		limit.rlim_cur = count;
		setrlimit(RLIMIT_NOFILE, &limit);
	}
	DescriptorLimit(const DescriptorLimit&) = delete;
	~DescriptorLimit() { setrlimit(RLIMIT_NOFILE, &fBefore); }

	DescriptorLimit& operator=(const DescriptorLimit&) = delete;

private:
	rlimit fBefore;
};


/*!	\return The lowest limit at which there are just enough left. */
static rlim_t
lowest_limit()
{
	for (rlim_t limit = 1;; limit++) {
		const DescriptorLimit tried(limit);
		if (HasSpareDescriptors())
			return limit;
	}
}


TEST(TransferPlacesTest, FileThatIsBeingWritten_HasOnePlace)
{
	TransferPlaces places;
	TransferPlaces::PlaceRef first = places.Take("/folder/name");
	ASSERT_NE(nullptr, first);
	EXPECT_EQ(nullptr, places.Take("/folder/name"));
	EXPECT_NE(nullptr, places.Take("/folder/Name"));
	first.reset();
	EXPECT_NE(nullptr, places.Take("/folder/name"));
}


TEST(TransferPlacesTest, Places_Are64)
{
	TransferPlaces places;
	Places taken;
	for (size_t i = 0; i < TransferPlaces::kMaxTransfers; i++) {
		taken.push_back(places.Take(i % 2 == 0 ? std::to_string(i) : std::string()));
		ASSERT_NE(nullptr, taken.back()) << i;
	}
	EXPECT_EQ(nullptr, places.Take(""));
	EXPECT_EQ(nullptr, places.Take("another"));
	taken.erase(taken.begin());
	EXPECT_NE(nullptr, places.Take("another"));
}


// Threads that are still under way when the program ends have theirs.
TEST(TransferPlacesTest, Place_MayOutliveThem)
{
	auto places = std::make_unique<TransferPlaces>();
	TransferPlaces::PlaceRef place = places->Take("name");
	places.reset();
	EXPECT_NE(nullptr, place);
	place.reset();
}


TEST(TransferPlacesTest, FewDescriptorsLeft_NoPlaceUntilThereAreMore)
{
	const rlim_t enough = lowest_limit();
	TransferPlaces places;
	{
		const DescriptorLimit limit(enough - 1);
		EXPECT_FALSE(HasSpareDescriptors());
		EXPECT_EQ(nullptr, places.Take("name"));
	}

	const DescriptorLimit limit(enough);
	EXPECT_TRUE(HasSpareDescriptors());
	const TransferPlaces::PlaceRef first = places.Take("name");
	EXPECT_NE(nullptr, first);
	// What has a place may not have opened anything yet.
	EXPECT_EQ(nullptr, places.Take("other"));
}


TEST(TransferPlacesTest, LookingForDescriptors_LeavesNone)
{
	const size_t before = count_descriptors();
	EXPECT_TRUE(HasSpareDescriptors(40));
	EXPECT_EQ(before, count_descriptors());
}


/*!	Takes the place again as soon as it is told of the end. */
class PlaceTaker : public BLooper {
public:
	PlaceTaker(TransferPlaces* places, std::string path)
		: fPlaces(places),
		  fPath(std::move(path)),
		  fHasAsked(false),
		  fHasTaken(false)
	{
	}

	void MessageReceived(BMessage* /*message*/) override
	{
		fHasTaken = fPlaces->Take(fPath) != NULL;
		fHasAsked = true;
	}

	bool HasAsked() const { return fHasAsked; }
	bool HasTaken() const { return fHasTaken; }

private:
	TransferPlaces* const fPlaces;
	const std::string fPath;
	std::atomic<bool> fHasAsked;
	std::atomic<bool> fHasTaken;
};


class TransferPlaceTest : public TransferTest {};


TEST_F(TransferPlaceTest, Outcome_ComesAfterThePlaceIsFree)
{
	TransferPlaces places;
	const std::unique_ptr<PlaceTaker, LooperQuitter> taker(new PlaceTaker(&places, PathOf("file")));
	taker->Run();
	DownloadInfo* download = NewDownload(PathOf("file"));
	download->place = places.Take(PathOf("file"));
	download->target = BMessenger(taker.get());
	EXPECT_EQ(0, Serve(DownloadThread, download, wire_file_object("data")));
	EXPECT_SOON(taker->HasAsked());
	EXPECT_TRUE(taker->HasTaken());
}


// What fails in silence gives its place back, too.
TEST_F(TransferPlaceTest, EveryEnd_FreesThePlace)
{
	TransferPlaces places;
	DownloadInfo* download = NewDownload(PathOf("file"));
	download->place = places.Take(PathOf("file"));
	EXPECT_EQ(1, Serve(DownloadThread, download, ""));
	EXPECT_NE(nullptr, places.Take(PathOf("file")));

	UploadInfo* upload = NewUpload(PathOf("missing"));
	upload->place = places.Take("upload");
	TransferRun run(UploadThread, upload);
	EXPECT_EQ(1, run.Result());
	EXPECT_NE(nullptr, places.Take("upload"));
}
