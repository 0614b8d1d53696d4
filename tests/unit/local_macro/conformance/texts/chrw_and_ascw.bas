' ChrW and AscW know all of UTF-16; codes from 32768 on are negative Integers.
'> 937
'> -1 -1
'> 5
Sub main()
    Debug.Print "" & AscW(ChrW(937))
    Debug.Print AscW(ChrW(65535)) & " " & AscW(ChrW(-1))
    On Error Resume Next
    x = ChrW(65536)
    Debug.Print "" & Err.Number
End Sub
