' Other values than texts are matched by their text.
'> True True
Sub main()
    Debug.Print (125 Like "1*5") & " " & (#3/8/2026# Like "#/#/####")
End Sub
