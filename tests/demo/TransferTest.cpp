/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Banners.h"
#include "FileContent.h"
#include "FileTree.h"
#include "QuietServer.h"
#include "WireRecords.h"


using demo::PatternContent;

static const size_t kOverhead = 24 + 16 + 16;


static std::string
path(const std::vector<std::string>& names)
{
	std::string value = wire16(static_cast<uint16_t>(names.size()));
	for (const std::string& name : names)
		value += wire16(0) + std::string(1, static_cast<char>(name.size())) + name;
	return wire_param(202, value);
}


static std::string
upload_object(const std::string& name, const std::string& data)
{
	return wire_file_object(data, wire_information_fork(name));
}


static uint32_t
number(const std::string& bytes)
{
	return wire_number_at(bytes, 0, bytes.size());
}


class TransferTest : public QuietServer {
protected:
	void Join(const std::string& login = "", const std::string& password = "")
	{
		fClient = std::make_unique<RawClient>(Start());
		fClient->ShakeHands();
		fClient->Request(107,
			{wire_param(105, Encoded(login)), wire_param(106, Encoded(password)),
				wire_param(102, "Tester"), wire_param(160, wire16(151))});
		fClient->ReceiveMessageOfType(109);
		fClient->Request(121, {wire_param(102, "Tester")});
		fClient->ReceiveMessageOfType(301);
	}

	WireTransaction Ask(uint32_t type, const std::vector<std::string>& fields)
	{
		fClient->Request(type, fields);
		WireTransaction reply(fClient->ReceiveMessageOfType(kReply));
		EXPECT_EQ(reply.id, fClient->LastRequest());
		return reply;
	}

	std::unique_ptr<RawClient> OpenTransfer(uint32_t reference, uint32_t size = 0)
	{
		uint16_t port = static_cast<uint16_t>(fServer->Port() + 1);
		auto transfer = std::make_unique<RawClient>(port);
		transfer->Send("HTXF" + wire32(reference) + wire32(size) + wire32(0));
		return transfer;
	}

	// Everything that comes under a reference until the server ends.
	std::string Fetch(uint32_t reference, size_t size)
	{
		auto transfer = OpenTransfer(reference);
		std::string bytes = transfer->Receive(size);
		EXPECT_TRUE(transfer->ReceiveEnd());
		return bytes;
	}

	WireTransaction Download(const std::vector<std::string>& folder, const std::string& name)
	{
		return Ask(202,
			{wire_param(201, name), path(folder), wire_param(203, std::string(74, '\0'))});
	}

	std::unique_ptr<RawClient> fClient;
};


TEST_F(TransferTest, RootListing_ByteForByte)
{
	Join();
	const WireTransaction list = Ask(200, {});
	EXPECT_EQ(list.error, 0u);
	ASSERT_GE(list.fields.size(), 10u);
	EXPECT_EQ(list.fields[1].first, 200);
	EXPECT_EQ(list.fields[1].second, "fldrn/a " + wire32(9) + wire32(0) + wire32(5) + "Sizes");
	EXPECT_EQ(list.fields[0].second.substr(0, 8), "TEXTttxt");
	EXPECT_EQ(list.fields[0].second.substr(16), wire32(11) + "Read me.txt");
}


TEST_F(TransferTest, EmptyFolder_RepliesWithoutFields)
{
	Join();
	EXPECT_EQ(fClient->Ask(200, {path({"Empty"})}), Message(kReply, 3, {}));
}


TEST_F(TransferTest, InnerFolderAndLongOne_Listed)
{
	Join();
	EXPECT_EQ(Ask(200, {path({"A drawer"})}).fields.size(), 1u);
	EXPECT_EQ(Ask(200, {path({"Many"})}).fields.size(), 5000u);
	EXPECT_EQ(Ask(200, {path({"Very many"})}).fields.size(), 20000u);
}


TEST_F(TransferTest, FoldersThatCannotBeHad_Refused)
{
	Join();
	EXPECT_EQ(Ask(200, {path({"Nowhere"})}).Field(100), "There is no folder \"Nowhere\".");
	EXPECT_EQ(Ask(200, {path({"Keeper's drawer"})}).Field(100),
		"Only keepers may look into this folder.");
	EXPECT_EQ(Ask(200, {wire_param(202, "\x05")}).Field(100), "That is no path.");
	EXPECT_EQ(Ask(202, {wire_param(201, "Ledger.txt"), path({"Keeper's drawer"})}).error, 1u);
}


TEST_F(TransferTest, Keeper_MayLookIntoTheDrawer)
{
	Join("keeper", "lantern");
	EXPECT_EQ(Ask(200, {path({"Keeper's drawer"})}).fields.size(), 1u);
	EXPECT_NE(number(Download({"Trouble"}, "locked").Field(107)), 0u);
}


TEST_F(TransferTest, StatusOfAKeeper_MakesNoKeeper)
{
	Join();
	fClient->Type("/status 2");
	EXPECT_EQ(Ask(200, {path({"Keeper's drawer"})}).error, 1u);
}


TEST_F(TransferTest, FilesOfAllSizes_ArriveWhole)
{
	Join();
	struct {
		const char* name;
		size_t size;
	} files[] = {{"empty", 0}, {"1 byte", 1}, {"1023 bytes", 1023}, {"1024 bytes", 1024},
		{"1048575 bytes", 1048575}, {"1048576 bytes", 1048576}, {"16 MiB", 16777216}};
	for (const auto& file : files) {
		SCOPED_TRACE(file.name);
		const WireTransaction reply = Download({"Sizes"}, file.name);
		std::string name = file.name;
		size_t informationSize = 74 + name.size();
		EXPECT_EQ(number(reply.Field(108)), kOverhead + informationSize + file.size);
		EXPECT_EQ(number(reply.Field(207)), file.size);

		std::string data(file.size, 0);
		PatternContent(file.size).Read(0, reinterpret_cast<uint8_t*>(&data[0]), data.size());
		std::string expected = upload_object(name, data);
		expected.replace(44, 8, "BINA????");
		EXPECT_TRUE(Fetch(number(reply.Field(107)), expected.size()) == expected);
	}
}


TEST_F(TransferTest, ResourceFork_FollowsTheData)
{
	Join();
	const WireTransaction reply = Download({"Archives"}, "With a resource fork.sit");
	size_t size = number(reply.Field(108));
	std::string bytes = Fetch(number(reply.Field(107)), size);
	ASSERT_EQ(bytes.size(), size);
	EXPECT_EQ(bytes.substr(22, 2), wire16(3));
	EXPECT_EQ(bytes.substr(size - 7000 - 16, 4), "MACR");
}


TEST_F(TransferTest, OldNames_FoundByTheirBytes)
{
	Join();
	EXPECT_NE(number(Download({"Names"}, "R\x8esum\x8e.txt").Field(107)), 0u);
	EXPECT_NE(number(Download({"Names", "Odd ones"}, "../../escaped.txt").Field(107)), 0u);
}


TEST_F(TransferTest, FilesThatCannotBeHad_Refused)
{
	Join();
	EXPECT_EQ(Download({}, "nothing").Field(100), "There is no file \"nothing\" here.");
	EXPECT_EQ(Download({}, "Sizes").Field(100), "\"Sizes\" is a folder.");
	EXPECT_EQ(Download({"Trouble"}, "gone meanwhile").Field(100),
		"There is no file \"gone meanwhile\" here.");
	EXPECT_EQ(Download({"Trouble"}, "locked").Field(100), "Only keepers may have \"locked\".");
	EXPECT_EQ(number(Download({"Trouble"}, "without a reference").Field(107)), 0u);
}


TEST_F(TransferTest, Troubles_AsTheirNamesSay)
{
	Join();
	const WireTransaction hangsUp = Download({"Trouble"}, "hangs up");
	EXPECT_EQ(Fetch(number(hangsUp.Field(107)), 1), "");

	const WireTransaction cut = Download({"Trouble"}, "cut short");
	size_t size = number(cut.Field(108));
	EXPECT_EQ(Fetch(number(cut.Field(107)), size).size(), size / 2);

	// It answers others meanwhile, and says nothing until it ends.
	auto silent = OpenTransfer(number(Download({"Trouble"}, "says nothing").Field(107)));
	EXPECT_EQ(Ask(200, {}).error, 0u);
	fServer->Stop();
	EXPECT_EQ(silent->Receive(1), "");
}


TEST_F(TransferTest, Reference_IsGoodForOnce)
{
	Join();
	uint32_t reference = number(Download({"Sizes"}, "1 byte").Field(107));
	EXPECT_EQ(Fetch(reference, 1000000).size(), kOverhead + 74 + 6 + 1);
	EXPECT_EQ(Fetch(reference, 1), "");
	EXPECT_EQ(Fetch(12345, 1), "");
}


TEST_F(TransferTest, StrangerOnTheTransferPort_TurnedAway)
{
	Join();
	for (const char* bytes : {"X", "GET / HTTP/1.0\r\n\r\n", "HTXE"}) {
		RawClient stranger(static_cast<uint16_t>(fServer->Port() + 1));
		stranger.Send(bytes);
		EXPECT_TRUE(stranger.ReceiveEnd());
	}
}


TEST_F(TransferTest, TenDownloadsAtOnce_WhileTheChatGoesOn)
{
	Join();
	const size_t size = kOverhead + 74 + 6 + (16 << 20);
	std::vector<std::unique_ptr<RawClient>> transfers;
	for (int i = 0; i < 10; i++)
		transfers.push_back(OpenTransfer(number(Download({"Sizes"}, "16 MiB").Field(107))));
	EXPECT_EQ(fClient->Say("meanwhile"), "Tester:  meanwhile");
	for (const auto& transfer : transfers) {
		EXPECT_EQ(transfer->Receive(size).size(), size);
		EXPECT_TRUE(transfer->ReceiveEnd());
	}
}


TEST_F(TransferTest, Upload_StoredListedAndGivenBack)
{
	Join();
	std::string data(3000000, 0);
	PatternContent(data.size()).Read(0, reinterpret_cast<uint8_t*>(&data[0]), data.size());
	std::string object = upload_object("mine.bin", data);
	auto size = static_cast<uint32_t>(object.size());
	const WireTransaction reply = Ask(203,
		{wire_param(201, "mine.bin"), path({"Uploads"}), wire_param(108, wire32(size))});
	auto transfer = OpenTransfer(number(reply.Field(107)), size);
	EXPECT_TRUE(transfer->Send(object));
	EXPECT_EQ(WireTransaction(fClient->ReceiveMessageOfType(106)).Field(101),
		"Tester has left \"mine.bin\" (3000000 bytes) in Uploads.");
	EXPECT_TRUE(transfer->ReceiveEnd());

	const WireTransaction list = Ask(200, {path({"Uploads"})});
	ASSERT_EQ(list.fields.size(), 1u);
	EXPECT_EQ(list.fields[0].second,
		"????????" + wire32(3000000) + wire32(0) + wire32(8) + "mine.bin");
	const WireTransaction download = Download({"Uploads"}, "mine.bin");
	EXPECT_TRUE(Fetch(number(download.Field(107)), object.size()) == object);
}


TEST_F(TransferTest, EmptyUpload_Stored)
{
	Join();
	std::string object = upload_object("nothing", "");
	auto size = static_cast<uint32_t>(object.size());
	const WireTransaction reply = Ask(203,
		{wire_param(201, "nothing"), wire_param(108, wire32(size))});
	OpenTransfer(number(reply.Field(107)), size)->Send(object);
	EXPECT_EQ(WireTransaction(fClient->ReceiveMessageOfType(106)).Field(101),
		"Tester has left \"nothing\" (0 bytes) in the entrance.");
}


TEST_F(TransferTest, UploadThatBreaksItsWord_NotStored)
{
	Join();
	std::string object = upload_object("mine", "data");
	auto size = static_cast<uint32_t>(object.size());
	std::string broken = object;
	broken[24] = 'X';
	struct {
		uint32_t announced;
		uint32_t size;
		std::string bytes;
	} cases[] = {
		{size, size + 1, object},
		{size + 1, size + 1, object},
		{size + 1, size, object},
		{size, size, broken},
		{size, size, object + "more"},
	};
	for (const auto& entry : cases) {
		const WireTransaction reply = Ask(203,
			{wire_param(201, "mine"), path({"Uploads"}), wire_param(108, wire32(entry.announced))});
		auto transfer = OpenTransfer(number(reply.Field(107)), entry.size);
		transfer->Send(entry.bytes);
		EXPECT_TRUE(transfer->ReceiveEnd());
	}
	EXPECT_TRUE(Ask(200, {path({"Uploads"})}).fields.empty());
}


TEST_F(TransferTest, UploadCutAtEachByte_NotStored)
{
	Join();
	std::string object = upload_object("mine", "data");
	auto size = static_cast<uint32_t>(object.size());
	for (size_t cut = 0; cut < object.size(); cut++) {
		const WireTransaction reply = Ask(203,
			{wire_param(201, "mine"), path({"Uploads"}), wire_param(108, wire32(size))});
		OpenTransfer(number(reply.Field(107)), size)->Send(object.substr(0, cut));
	}
	EXPECT_TRUE(Ask(200, {path({"Uploads"})}).fields.empty());
}


TEST_F(TransferTest, UploadsThatCannotBe_Refused)
{
	Join();
	auto upload = [this](const std::string& name, const std::vector<std::string>& folder) {
		return Ask(203, {wire_param(201, name), path(folder), wire_param(108, wire32(100))})
			.Field(100);
	};
	EXPECT_EQ(upload("Read me.txt", {}), "There is a file \"Read me.txt\" already.");
	EXPECT_EQ(upload("Sizes", {}), "There is a file \"Sizes\" already.");
	EXPECT_EQ(upload("", {}), "A file needs a name of at most 255 bytes.");
	EXPECT_EQ(upload("x", {"Nowhere"}), "There is no folder \"Nowhere\".");
	EXPECT_EQ(upload("x", {"Keeper's drawer"}), "Only keepers may look into this folder.");
}


TEST_F(TransferTest, Banner_AnnouncedAndFetched)
{
	fOptions.banner = true;
	Join();
	EXPECT_EQ(fClient->ReceiveMessageOfType(122), Message(122, 3, {wire_param(152, "BMPf")}));
	std::string expected;
	ASSERT_TRUE(demo::make_banner("night", &expected));
	const WireTransaction reply = Ask(212, {});
	EXPECT_EQ(reply.fields.size(), 2u);
	EXPECT_EQ(number(reply.Field(108)), expected.size());
	EXPECT_TRUE(Fetch(number(reply.Field(107)), expected.size()) == expected);
}


TEST_F(TransferTest, Banners_HaveTheSizesThatMatter)
{
	std::string bytes;
	ASSERT_TRUE(demo::make_banner("largest", &bytes));
	EXPECT_EQ(bytes.size(), 524288u);
	ASSERT_TRUE(demo::make_banner("toolarge", &bytes));
	EXPECT_EQ(bytes.size(), 524289u);
	ASSERT_TRUE(demo::make_banner("enormous", &bytes));
	EXPECT_LT(bytes.size(), 100u);
	ASSERT_TRUE(demo::make_banner("wide", &bytes));
	EXPECT_LT(bytes.size(), 524288u);
	ASSERT_TRUE(demo::make_banner("empty", &bytes));
	EXPECT_TRUE(bytes.empty());
	ASSERT_TRUE(demo::make_banner("night", &bytes));
	EXPECT_EQ(bytes.size(), 54u + 468 * 3 * 60);
	EXPECT_EQ(bytes.substr(0, 2), "BM");
	EXPECT_FALSE(demo::make_banner("", &bytes));
}
