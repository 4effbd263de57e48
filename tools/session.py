#!/usr/bin/env python3
"""A first session with a node, by a stock XML-RPC client: ACM on and off, and what the node's alarms say."""

import sys
import xmlrpc.client


def show(text, answer):
    print(f">>> {text}\n{answer}")


def alarms(node):
    return [f"{event['eventName']} on channel {event['radioChannelId']}: "
            f"{'raised' if event['isActive'] else 'cleared'}"
            for event in node.CI.GetEvents()["events"]]


def main():
    node = xmlrpc.client.ServerProxy(sys.argv[1])
    show("system.listMethods()", f"{len(node.system.listMethods())} methods")
    show('CRI.EnableAcm({"channelId": 1, "enable": True})',
         node.CRI.EnableAcm({"channelId": 1, "enable": True}))
    show("CI.GetEvents()", alarms(node))
    show('CRI.EnableAcm({"channelId": 1, "enable": False})',
         node.CRI.EnableAcm({"channelId": 1, "enable": False}))
    show("CI.GetEvents()", alarms(node))
    try:
        node.CRI.EnableAcm({"channelId": 3, "enable": True})
    except xmlrpc.client.Fault as fault:
        show('CRI.EnableAcm({"channelId": 3, "enable": True})', fault)


if __name__ == "__main__":
    main()
