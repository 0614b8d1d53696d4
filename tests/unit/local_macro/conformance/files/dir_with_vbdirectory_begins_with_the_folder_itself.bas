' With vbDirectory the list of a folder begins with "." and "..", the folder and the one around it.
'> . .. a.txt sub
'> .
'> a.txt
Sub main()
    Dim s As String, all As String
    MkDir "C:\d"
    MkDir "C:\d\sub"
    Open "C:\d\a.txt" For Output As #1
    Close
    s = Dir("C:\d\", vbDirectory)
    Do While s <> ""
        all = all & " " & s
        s = Dir
    Loop
    Debug.Print Trim(all)
    ChDir "C:\d"
    Debug.Print Dir("*.*", vbDirectory)
    Debug.Print Dir("C:\d\*")
End Sub
