' Two quotation marks in a text are one; other signs mean themselves.
'> say "yes" 'now' _ : # &
Sub main()
    Debug.Print "say ""yes"" 'now' _ : # &"
End Sub
