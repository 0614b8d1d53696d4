' Characters beyond 65535 are two units, as everywhere in UTF-16.
'> 2 -10179 -8704
Sub main()
    s = ChrW(&HD83D) & ChrW(&HDE00)
    Debug.Print Len(s) & " " & AscW(s) & " " & AscW(Mid(s, 2))
End Sub
