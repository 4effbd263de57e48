import sys, xmlrpc.client
node = xmlrpc.client.ServerProxy(sys.argv[1])
frame = node.CRI.GetAirInterfaceCapability({"RadioChannelID": 1, "ReleasedFilter": "OnlyReleased"})["FrameFormatCapabilities"][0]
able = node.CRI.GetRadioChannelCapability({"RadioChannelID": 1, "radioFrameId": frame["RadioFrameID"], "minModulation": "4QAM", "maxModulation": "1024QAM", "referenceSec": "4L"})
node.CRI.SetRadioChannelNearEnd({"RadioChannelID": 1, "radioFrameId": frame["RadioFrameID"], "minModulation": "4QAM", "maxModulation": "1024QAM", "referenceSec": "4L",
                                 "txFrequency_kHz": able["MinTXFrequency"], "rxFrequency_kHz": able["MinRXFrequency"]})
node.CRI.SetRFPower({"RadioChannelID": 1, "txRequestedStatus": "On", "targetRfInputPowerFarEnd": -400, "minRfOutputPower": able["AvailableMinRFOutputPower"], "maxRfOutputPower": able["AvailableMinRFOutputPower"] + 50})
for pathLoss in range(500, 901, 50):  # tenths of a dB, as a storm would have it
    node.SIM.SetPathLoss({"value": pathLoss})
    status = node.CRI.GetRadioChannelStatus({"RadioChannelID": 1})
    level = status["ActualRFInputPower"]
    print(f"{level:5} {status['RadioChannelStatus']:4} {status['ActualRxModulation']:16} {'#' * max(0, (level + 1000) // 20)}")
