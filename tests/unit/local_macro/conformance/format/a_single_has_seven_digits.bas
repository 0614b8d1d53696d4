' A Single is shown by its seven digits, not by the Double that it is kept in.
'> 0.1000000000 16777220
Sub main()
    Debug.Print Format(0.1!, "0.0000000000") & " " & Format(16777216!, "0")
End Sub
